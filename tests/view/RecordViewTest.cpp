#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <tuple>

#include "app/FormCanvas.h"
#include "tests/support/WindowTest.h"
#include "view/FieldBox.h"

namespace quorvin {
namespace {

class RecordViewTest : public test::WindowTest {
protected:
    const FormScale& scale() { return control<FormCanvas>("Form").scale(); }

    /// Left and top of a control on the whole form, in columns and lines.
    QPointF place(const char* name)
    {
        const QPoint corner = control(name).mapTo(&control("Form"), QPoint(0, 0));
        return {double(corner.x()) / scale().columnWidth(), double(corner.y()) / scale().lineHeight()};
    }

    void setSlider(const char* name, int value) { control<QSlider>(name).setValue(value); }
};

TEST_F(RecordViewTest, FieldsStandAtTheirColumnsAndLines)
{
    open(test::rec(
        {{.length = 9, .question = "nome", .questionX = 3, .questionY = 5, .fieldX = 30, .fieldY = 6},
         {.length = 0, .question = "titolo"}}));
    EXPECT_EQ(place("Label2(1)"), QPointF(3, 7));
    EXPECT_EQ(place("Text2(1)"), QPointF(30, 8));
    EXPECT_EQ(control("Text2(1)").width(), 10 * scale().columnWidth());
    EXPECT_EQ(control("Label2(1)").width(), 4 * scale().columnWidth());
    EXPECT_EQ(caption("Label2(1)"), QStringLiteral("nome"));
    EXPECT_TRUE(control("Label2(2)").isVisible());
    EXPECT_FALSE(control("Text2(2)").isVisible()) << "a field without length is a title";

    form_->resize(1600, 1000);
    EXPECT_EQ(place("Text2(1)"), QPointF(30, 8)) << "a larger window, the same columns and lines";
    EXPECT_GT(scale().columnWidth(), 8);
}

TEST_F(RecordViewTest, SlidersAndScrollBarMoveTheFields)
{
    std::vector<test::FieldSpec> fields(23, {.questionX = 3, .questionY = 5, .fieldX = 30, .fieldY = 10});
    open(test::rec(fields));
    setSlider("Slider1", -7);
    EXPECT_EQ(place("Label2(1)"), QPointF(10, 7));
    setSlider("Slider2", 200);
    EXPECT_EQ(place("Label2(1)"), QPointF(10, 12));
    EXPECT_EQ(place("Text2(1)"), QPointF(37, 22));
    control<QScrollBar>("VScroll1").setValue(4);
    EXPECT_EQ(place("Text2(1)"), QPointF(37, 18));
    setSlider("Slider2", 100);
    setSlider("Slider1", 0);
    EXPECT_EQ(place("Text2(1)"), QPointF(30, 8)) << "the scroll offset is kept";
}

TEST_F(RecordViewTest, TheScrollBarComesWithTheTwentyThirdField)
{
    for (const std::size_t fields : {22U, 23U}) {
        open(test::rec(std::vector<test::FieldSpec>(fields)).record({}));
        EXPECT_EQ(control("VScroll1").isVisible(), fields > 22);
        EXPECT_EQ(control<QScrollBar>("VScroll1").maximum(), int(fields));
    }
}

TEST_F(RecordViewTest, TheFocusBringsAFieldIntoSight)
{
    using Case = std::tuple<int, int, int>;
    for (const auto& [count, linesApart, spacing] :
         {Case{60, 1, 100}, Case{60, 1, 200}, Case{22, 4, 100}, Case{3, 30, 200}}) {
        std::vector<test::FieldSpec> fields;
        for (int n = 1; n <= count; ++n)
            fields.push_back({.length = 1, .questionY = n * linesApart, .fieldY = n * linesApart});
        open(test::rec(fields).record({}));
        setSlider("Slider2", spacing);
        for (const int n : {count, 1, count / 2, count}) {
            QWidget& box = control(qPrintable(QStringLiteral("Text2(%1)").arg(n)));
            form_->setFocus();
            box.setFocus();
            EXPECT_TRUE(box.parentWidget()->rect().contains(box.geometry()))
                << count << " fields, number " << n;
        }
    }
}

TEST_F(RecordViewTest, TheFocusBringsAFieldIntoSightFromTheSides)
{
    open(test::rec(
             {{.fieldX = 1}, {.length = 300, .fieldX = 20}, {.fieldX = 180}, {.length = 300, .fieldX = 150}})
             .record({}));
    control("Text2(2)").setFocus();
    EXPECT_EQ(control<QSlider>("Slider1").value(), 0) << "its beginning is in sight";
    for (const int n : {3, 1, 4, 1}) {
        QWidget& box = control(qPrintable(QStringLiteral("Text2(%1)").arg(n)));
        box.setFocus();
        EXPECT_GE(box.x(), 0) << n;
        EXPECT_LE(std::min(box.geometry().right(), box.x() + 20), box.parentWidget()->width()) << n;
    }
}

TEST_F(RecordViewTest, TheTabKeyGoesByFieldNumber)
{
    open(test::rec({{.fieldY = 9}, {.fieldY = 3}, {.fieldY = 6}}).record({}));
    control("Text2(1)").setFocus();
    for (const char* next : {"Text2(2)", "Text2(3)"}) {
        QTest::keyClick(form_->focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(form_->focusWidget(), &control(next));
    }
}

TEST_F(RecordViewTest, BoxesTakeLongSearchTextsAndShowLongValues)
{
    open(test::rec({{.length = 2}, {.length = 999}}).record({"ab", std::string(999, 'x')}));
    type("Text2(1)", QString(501, QLatin1Char('y')));
    EXPECT_EQ(value(1).size(), 500);
    click("Command1");
    EXPECT_EQ(value(2).size(), 999);
    QTest::keyClick(&control("Text2(2)"), Qt::Key_End);
    QTest::keyClick(&control("Text2(2)"), Qt::Key_Backspace);
    EXPECT_EQ(value(2).size(), 500) << "once it is changed it is a search text";
    click("Command1");
    click("Command3");
    type("Text2(2)", QString(501, QLatin1Char('y')));
    EXPECT_EQ(value(2).size(), 500);
}

TEST_F(RecordViewTest, ColoursOfTheFile)
{
    open(test::rec({{.questionColour = 30, .fieldColour = 112}}, 19).record({}));
    const QColor usual = background("Text2(1)");
    choose("preferenze");
    click("Check1");
    // 30 = 1 x 16 + 14, 112 = 7 x 16 + 0, 19 = 1 x 16 + 3
    EXPECT_EQ(control("Label2(1)").palette().color(QPalette::Window), QColor(0, 0, 128));
    EXPECT_EQ(control("Label2(1)").palette().color(QPalette::WindowText), QColor(255, 255, 0));
    EXPECT_EQ(background("Text2(1)"), QColor(192, 192, 192));
    EXPECT_EQ(formColour(), QColor(0, 128, 128));

    click("Text2(1)");
    EXPECT_EQ(background("Text2(1)"), QColor(0xC0, 0, 0xC0))
        << "a chosen field shows over the file's colours";
    click("Command3");
    EXPECT_EQ(background("Text2(1)"), QColor(192, 192, 192));
    click("Check1");
    EXPECT_EQ(background("Text2(1)"), usual);
}

TEST_F(RecordViewTest, ClicksChooseFieldsAndCommand3LetsThemGo)
{
    open(test::rec({{}, {}}).records(1));
    const QColor usual = background("Text2(1)");
    click("Command1");
    click("Text2(1)", Qt::RightButton);
    EXPECT_EQ(background("Text2(1)"), usual) << "only the left button chooses";
    click("Text2(1)");
    EXPECT_EQ(background("Text2(1)"), QColor(0xC0, 0, 0xC0));
    EXPECT_EQ(control("Text2(1)").palette().color(QPalette::Text), QColor(255, 255, 255));
    QTest::keyClick(&control("Text2(2)"), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(background("Text2(2)"), QColor(0xC0, 0, 0xC0)) << "the keyboard chooses too";
    click("Command3");
    EXPECT_EQ(background("Text2(1)"), usual);
    EXPECT_EQ(value(1), QString());
}

TEST_F(RecordViewTest, ADoubleClickChoosesAFieldOnce)
{
    open(test::rec({{}}).records(1));
    auto& box = control<FieldBox>("Text2(1)");
    int choices = 0;
    QObject::connect(&box, &FieldBox::clicked, &box, [&choices] { ++choices; });
    // What a double click consists of; mouseDClick is its third event only.
    QTest::mouseClick(&box, Qt::LeftButton);
    QTest::mouseDClick(&box, Qt::LeftButton);
    QTest::mouseRelease(&box, Qt::LeftButton);
    EXPECT_EQ(choices, 1);
    QTest::mouseClick(&box, Qt::LeftButton);
    EXPECT_EQ(choices, 2) << "a click of its own chooses it again";
}

TEST_F(RecordViewTest, StatisticsModesPaintFormAndBox)
{
    using Case = std::tuple<const char*, QColor, QColor>;
    for (const auto& [mode, labels, box] :
         {Case{"freq", {128, 0, 128}, {0, 255, 0}}, Case{"tabella", {128, 0, 0}, {255, 255, 0}}}) {
        open(test::rec({{}}).records(1));
        choose(mode);
        EXPECT_EQ(background("Label2(1)"), QColor(128, 0, 128)) << mode;
        click("Text2(1)");
        EXPECT_EQ(formColour(), QColor(128, 0, 128)) << mode;
        EXPECT_EQ(background("Label2(1)"), labels) << mode;
        EXPECT_EQ(background("Text2(1)"), box) << mode;
        EXPECT_EQ(control("Text2(1)").palette().color(QPalette::Text), QColor(0, 0, 128)) << mode;
    }
}

TEST_F(RecordViewTest, AQuestionLongerThanItsRoomIsNarrowedUpToItsBox)
{
    open(test::rec({{.question = "vanilla ice cream", .questionX = 1, .fieldX = 15}}));
    const QRect label = control("Label2(1)").geometry();
    EXPECT_LE(label.right(), control("Text2(1)").geometry().left());
    const QFontMetrics metrics(control("Label2(1)").font());
    EXPECT_LE(metrics.horizontalAdvance(QStringLiteral("vanilla ice cream")), label.width());
}

}  // namespace
}  // namespace quorvin
