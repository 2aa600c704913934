/// Searches in a file of the test's own, and what a consumer sees of them.
#pragma once

#include <gtest/gtest.h>

#include "search/SearchDriver.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/RecBuilder.h"
#include "tests/support/TempFolder.h"

namespace quorvin::test {

/// Writes down what it is told, and fails when it is told `failsAt`.
class LoggingConsumer : public SearchConsumer {
public:
    std::string log;
    std::string failsAt;
    std::vector<RecordNumber> hits;
    bool willing = true;  ///< to have a search
    int asked = 0;

    bool mayStart(const SearchQuery&) override
    {
        ++asked;
        return willing;
    }
    void searchStarts(const SearchQuery&, RecordNumber first, RecordNumber last) override
    {
        note("starts " + std::to_string(first) + "-" + std::to_string(last));
    }
    void recordMatched(const Matcher& matcher) override { note("matched " + matcher.fieldValue(1)); }
    void hit(RecordScanner& record) override
    {
        hits.push_back(record.number());
        note("hit " + std::string(record.fieldValue(1)));
    }
    void searchEnds(SearchEnd end, std::string_view, const Matcher&) override
    {
        constexpr const char* kEnds[] = {"completed", "stopped", "refused", "failed"};
        note(kEnds[static_cast<std::size_t>(end)]);
    }

private:
    void note(const std::string& event)
    {
        log += (log.empty() ? "" : ", ") + event;
        if (event == failsAt) throw RuntimeError(ErrorNumber::diskFull);
    }
};

/// A search that lists the first selected field; `options`: names of those that are on, "step" for none of
/// the lists. With `unirek` all fields are joined.
inline SearchQuery query(int mode, const std::vector<int>& fields, std::vector<std::string> texts,
                         const std::string& options = "")
{
    const auto on = [&](const char* option) { return options.find(option) != std::string::npos; };
    SearchQuery q;
    q.mode = static_cast<SearchMode>(mode);
    for (const int field : fields)
        q.selection.append(field);
    q.texts = std::move(texts);
    q.joinList = q.selection;
    q.startField = fields.front();
    q.norec = on("norec");
    q.eliminapuntegg = on("eliminapuntegg");
    q.unirek = on("unirek");
    q.elencorekord = !on("step");
    q.sort = on("sort");
    q.maxel = on("maxel");
    q.Check2 = on("Check2");
    return q;
}

class SearchTest : public testing::Test {
protected:
    using State = SearchDriver::State;

    SearchTest()
    {
        driver_.addConsumer(failing_);
        driver_.addConsumer(consumer_);
    }

    void use(const std::string& bytes)
    {
        name_ = folder_.write("prova.rec", bytes);
        file_.open(name_);
        file_.readDefinitions();
        file_.measure();
    }

    /// The number of the error that ends the search, 0 without one.
    int run(const SearchQuery& q)
    {
        consumer_.log.clear();
        consumer_.hits.clear();
        const int error = errorOf([&] { driver_.start(q); });
        return std::max(error, finish());
    }
    /// Goes on at every hit.
    int finish()
    {
        int error = 0;
        while (driver_.state() != State::idle) {
            error = std::max(error, errorOf([&] { driver_.advance(1000); }));
            error = std::max(error, errorOf([&] { driver_.goOn(); }));
        }
        return error;
    }

    /// The numbers of the records found.
    std::vector<RecordNumber> search(const SearchQuery& q)
    {
        EXPECT_EQ(run(q), 0);
        return consumer_.hits;
    }

    std::vector<std::string> lines() const
    {
        std::vector<std::string> all;
        for (std::size_t row = 0; row < driver_.hits().rowCount(); ++row)
            all.emplace_back(driver_.hits().line(row));
        return all;
    }

    TempFolder folder_;
    std::filesystem::path name_;
    RecFile file_;
    SearchDriver driver_{file_};
    LoggingConsumer failing_;
    LoggingConsumer consumer_;
};

}  // namespace quorvin::test
