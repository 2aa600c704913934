#include "tests/support/RecBuilder.h"

#include <utility>

namespace quorvin::test {

namespace {

std::string padLeft(const std::string& text, std::size_t width)
{
    return std::string(text.size() < width ? width - text.size() : 0, ' ') + text;
}

std::string padRight(std::string text, std::size_t width)
{
    text.resize(width, ' ');
    return text;
}

}  // namespace

std::string definitionLine(const FieldSpec& field)
{
    std::string line = "_" + padRight(field.name, 10) + " ";
    for (const int number : {field.questionX, field.questionY, field.questionColour, field.fieldX,
                             field.fieldY, 1, field.length, field.fieldColour})
        line += padLeft(std::to_string(number), 4);
    return line + " " + field.question;
}

RecBuilder::RecBuilder(std::vector<FieldSpec> fields, int screenColour, std::string lineEnd) :
    fields_(std::move(fields)),
    lineEnd_(std::move(lineEnd))
{
    bytes_ = std::to_string(fields_.size()) + " " + std::to_string(screenColour) + " VLAB Filelabel: prova" +
             lineEnd_;
    for (const FieldSpec& field : fields_)
        bytes_ += definitionLine(field) + lineEnd_;
}

RecBuilder& RecBuilder::record(const std::vector<std::string>& values, char mark)
{
    std::string text;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        text += padRight(i < values.size() ? values[i] : "", static_cast<std::size_t>(fields_[i].length));
    for (; text.size() > 78; text.erase(0, 78))
        bytes_ += text.substr(0, 78) + "!" + lineEnd_;
    bytes_ += text + mark + lineEnd_;
    return *this;
}

RecBuilder& RecBuilder::records(int count)
{
    for (int n = 1; n <= count; ++n)
        record({"r" + std::to_string(n)});
    return *this;
}

}  // namespace quorvin::test
