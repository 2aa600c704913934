/// A user who does anything at all, in an order that a seed fixes.
#pragma once

#include <QStringList>
#include <deque>
#include <map>
#include <memory>
#include <random>
#include <span>

#include "tests/app/WindowRules.h"
#include "tests/search/SlowSearch.h"
#include "tests/support/PlainRec.h"
#include "tests/support/WindowTest.h"

namespace quorvin::test {

/// Clicks, types, chooses items, turns, drags, opens files good and bad, and answers boxes, all by chance.
class RandomUser : public WindowTest {
protected:
    RandomUser();

    /// One deed after another until something is amiss; `check` is called behind each.
    void run(unsigned seed, int events);
    virtual void check() = 0;
    /// Called behind a search from the beginning that has run to its end.
    virtual void checkHits() = 0;

    /// Something is amiss; one who plays notes it and stops.
    void fail(const QString& what) { failures_ += what; }
    /// Seed, faults and the last deeds.
    std::string report() const;

    /// Name of the open file, or nothing; what it holds if it is a good one; its settings file.
    QString openName() const { return form_->windowTitle().section(QLatin1String(" - "), 0, -2); }
    const PlainRec* openRec() const;
    std::string settings() const;
    bool isSearching() { return caption("Label16") == QLatin1String("  ...ricerca in corso"); }
    bool chance(std::size_t oneIn) { return below(oneIn) == 0; }

    std::map<std::string, PlainRec> files_;  ///< the good ones
    std::unique_ptr<WindowRules> rules_;
    QStringList failures_;
    qint64 slowest_ = 0;  ///< milliseconds of one deed

    // The deed done last

    QStringList triggered_;  ///< items chosen, by whatever way
    QString fileBefore_;     ///< open before it
    std::string settingsBefore_;
    QString numberBefore_;      ///< Label14
    bool searched_ = false;     ///< the record on show comes from a search
    bool fileWasGone_ = false;  ///< others had taken the file away meanwhile
    SlowSearch query_;          ///< of the search begun last

private:
    struct Deed {
        const char* name;
        int weight;
        void (RandomUser::*act)();
        bool withMenus;  ///< also while a menu is open, which takes it then
    };
    /// All there are; the first opens a file.
    static std::span<const Deed> deeds();

    int below(std::size_t n) { return static_cast<int>(random_() % std::max<std::size_t>(n, 1)); }
    template<class Range>
    auto& oneOf(Range& range)
    {
        return *std::next(std::begin(range), below(std::size(range)));
    }
    QString anyText();
    QString path(const QString& name) const;
    void note(const QString& what) { trail_.back() += QLatin1Char(' ') + what; }

    void makeFiles();
    void startForm();
    void prepareAnswers();
    void act(const Deed& deed);
    static void closeMenus();
    static void endLoop();
    QWidget* anyControl(const char* names = "");
    QPoint placeIn(const QWidget& control);
    QStringList tickedItems() const;
    bool beginSearch();

    void openAnother();
    void click();
    void clickInput();
    void drag();
    void pressKey();
    void chooseItem();
    void turnWheel();
    void moveSlider();
    void resizeWindow();
    void typeText();
    void paste();
    void search();
    void searchAndGoOn();
    void clickHit();
    void pause();
    void holdButton();
    void workWithoutFile();
    void closeWindow();

    std::mt19937 random_;
    std::deque<QString> trail_;
    qsizetype objectsBefore_ = 0;  ///< in the new window
};

}  // namespace quorvin::test
