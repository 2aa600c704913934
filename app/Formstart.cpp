#include "app/Formstart.h"

#include <QAction>
#include <QCheckBox>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollArea>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <exception>

#include "app/BuiltInTexts.h"
#include "app/ClickModes.h"
#include "app/Dialogs.h"
#include "app/FormCanvas.h"
#include "app/Messages.h"
#include "app/PreferencesFrame.h"
#include "app/TextFrame.h"
#include "app/Utf8.h"
#include "base/RuntimeError.h"
#include "search/HitListView.h"
#include "search/SearchPanel.h"
#include "search/SearchStatus.h"
#include "view/Colours.h"
#include "view/EpiDataLaunch.h"
#include "view/FieldBox.h"
#include "view/Navigator.h"
#include "view/RecordView.h"

namespace quorvin {

namespace {

/// Longest field that EpiData can open.
constexpr int kLongestCompatible = 80;

/// Height in pixels of the screens that "risol.video vert.: 600" is for, and what a window's title takes of
/// it.
constexpr int kLowScreen = 600;
constexpr int kTitleBar = 30;

constexpr int kHintMilliseconds = 6000;

/// Places on the form: left, top, width, height in columns and lines; 0 reaches to the edge.
constexpr QRectF kNavigatorPlace(0, 0, 0, RecordView::kTopLines);
constexpr QRectF kRecordPlace(0, RecordView::kTopLines, 0, 0);
constexpr QRectF kInvitationPlace(0, 12, 0, 6);
constexpr QRectF kGuidePlace(3, 3, 84, 37);
constexpr QRectF kLimitsPlace(40, 8, 56, 18);
constexpr QRectF kVersionPlace(44, 12, 56, 11);
constexpr QRectF kPreferencesPlace(78, 3, 44, 11);

bool isEpiDataCompatible(const FieldTable& fields)
{
    for (int n = 1; n <= fields.fieldCount; ++n) {
        if (fields.length(n) > kLongestCompatible) return false;
    }
    return true;
}

}  // namespace

Formstart::Formstart(Dialogs& dialogs) : dialogs_(dialogs), menuTree_(*menuBar())
{
    setObjectName(QStringLiteral("Formstart"));
    setAcceptDrops(true);
    buildForm();
    connectMenus();
    connectParts();
    Form_Load();
    showState();
}

Formstart::~Formstart() = default;

void Formstart::buildForm()
{
    canvas_ = new FormCanvas(this);
    recordView_ = new RecordView(canvas_);
    navigator_ = new Navigator(recFile_, *recordView_, canvas_);
    navigator_->insertTools(recordView_->scaleBar());
    canvas_->place(recordView_, kRecordPlace);
    canvas_->place(navigator_, kNavigatorPlace);

    searchStatus_ = new SearchStatus(this);
    searchPanel_ = new SearchPanel(
        {recFile_, selections_, *recordView_, *navigator_, menuTree_, *searchStatus_}, canvas_);
    canvas_->place(&searchPanel_->Frame3(), RangeFrame::place());
    placeSearchPanel();

    Label7 = new QLabel(fromUtf8Text(messages::kInvitation), canvas_);
    Label7->setObjectName(QStringLiteral("Label7"));
    Label7->setAlignment(Qt::AlignCenter);
    QFont large = Label7->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    Label7->setFont(large);
    canvas_->place(Label7, kInvitationPlace);

    Frame7 = addTextFrame(QStringLiteral("note"),
                          new TextFrame(QStringLiteral("Frame7"), fromUtf8Text(messages::kGuideFrame),
                                        QStringLiteral("Text7"), guideText(), canvas_),
                          kGuidePlace);
    Frame5 = addTextFrame(QStringLiteral("limiti"),
                          new TextFrame(QStringLiteral("Frame5"), fromUtf8Text(messages::kLimitsFrame),
                                        QStringLiteral("Text6"), limitsText(), canvas_),
                          kLimitsPlace);
    Frame6 = addTextFrame(QStringLiteral("versione"),
                          new TextFrame(QStringLiteral("Frame6"), fromUtf8Text(messages::kVersionFrame),
                                        QStringLiteral("versionText"), versionText(), canvas_),
                          kVersionPlace);
    Frame10 = new PreferencesFrame(canvas_);
    Frame10->hide();
    canvas_->place(Frame10, kPreferencesPlace);

    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(canvas_);
    setCentralWidget(scroll);
    statusBar()->addWidget(searchStatus_, 1);
    statusBar()->addPermanentWidget(&searchPanel_->norecSign());
}

TextFrame* Formstart::addTextFrame(const QString& menu, TextFrame* frame, const QRectF& place)
{
    frame->hide();
    canvas_->place(frame, place);
    connect(frame, &TitledFrame::closeRequested, &menuTree_.item(menu), &QAction::trigger);
    return frame;
}

void Formstart::connectMenus()
{
    struct Handler {
        const char* menu;
        void (Formstart::*click)();
    };
    constexpr Handler kHandlers[] = {
        {"aprifile", &Formstart::aprifile_Click},
        {"preferenze", &Formstart::preferenze_Click},
        {"impostMaiusc", &Formstart::impostMaiusc_Click},
        {"compEpidat", &Formstart::compEpidat_Click},
        {"adatta600", &Formstart::adatta600_Click},
        {"esci", &Formstart::esci_Click},
        {"EpiData", &Formstart::EpiData_Click},
        {"note", &Formstart::note_Click},
        {"limiti", &Formstart::limiti_Click},
        {"versione", &Formstart::versione_Click},
    };
    for (const Handler& handler : kHandlers)
        menuTree_.onClick(fromUtf8Text(handler.menu), [this, click = handler.click] { (this->*click)(); });
    menuTree_.isBlocked = [this] { return searchPanel_->isSearching(); };
}

void Formstart::connectParts()
{
    connect(canvas_, &FormCanvas::scaleChanged, recordView_, &RecordView::setScale);
    connect(canvas_, &FormCanvas::nextRequested, navigator_, &Navigator::pressNext);
    connect(canvas_, &FormCanvas::previousRequested, navigator_, &Navigator::pressPrevious);
    connect(canvas_, &FormCanvas::escapePressed, this, &Formstart::closeTopFrame);
    connect(recordView_, &RecordView::Text2_Click, this, &Formstart::Text2_Click);
    connect(navigator_, &Navigator::epiDataRequested, this, &Formstart::EpiData_Click);
    connect(navigator_, &Navigator::clearRequested, this, &Formstart::Command3_Click);
    connect(navigator_, &Navigator::expandRequested, &menuTree_.item(QStringLiteral("maxel")),
            &QAction::trigger);
    connect(navigator_, &Navigator::moveFailed, this, &Formstart::showHint);
    connect(Frame10, &TitledFrame::closeRequested, &menuTree_.item(QStringLiteral("preferenze")),
            &QAction::trigger);
    connect(Frame10->Check1, &QCheckBox::clicked, this, &Formstart::Check1_Click);
    connect(Frame10->Check3, &QCheckBox::clicked, this, &Formstart::Check3_Click);
    connectSearch();
}

void Formstart::connectSearch()
{
    searchPanel_->continuo = [this] {
        return dialogs_.question(BoxIcon::question, fromUtf8Text(messages::kContinue));
    };
    connect(searchPanel_, &SearchPanel::azzeravarRequested, this, &Formstart::azzeravar);
    connect(searchPanel_, &SearchPanel::cancellaRequested, this, &Formstart::cancella);
    connect(searchPanel_, &SearchPanel::fieldChosen, this, &Formstart::Text2_Click);
    connect(searchPanel_, &SearchPanel::searchFailed, this,
            [this](const RuntimeError& error) { showError(messages::kError, error); });
    connect(searchPanel_, &SearchPanel::hitFailed, this,
            [this](const RuntimeError& error) { showError(messages::kHitError, error); });
    connect(searchPanel_, &SearchPanel::epiDataRequested, this, &Formstart::EpiData_Click);
    connect(searchPanel_, &SearchPanel::placesChanged, this, &Formstart::placeSearchPanel);
    connect(searchPanel_, &SearchPanel::hint, this, &Formstart::showHint);
    connect(canvas_, &FormCanvas::scaleChanged, &searchPanel_->lists(), &HitLists::setScale);
    connect(Frame10->Check2, &QCheckBox::toggled, searchPanel_,
            [this](bool checked) { searchPanel_->Check2 = checked; });
}

/// Stands the lists by their size, and gives the record the room beside what is shown of them.
void Formstart::placeSearchPanel()
{
    const HitLists& lists = searchPanel_->lists();
    const QRectF place = HitLists::place(menuTree_.isTicked(QStringLiteral("maxel")));
    canvas_->place(lists.List1, place);
    canvas_->place(lists.List2, place);
    QRectF record = kRecordPlace;
    if (!searchPanel_->Frame3().isHidden()) record.setRight(RangeFrame::place().left());
    if (lists.shown()) record.setRight(place.left());
    canvas_->place(recordView_, record);
}

void Formstart::aprifile_Click()
{
    const QString folder =
        recFile_.hasName() ? QFileInfo(recFile_.dataFileName().parent_path()).absoluteFilePath() : QString();
    const QString name = dialogs_.openFile(fromUtf8Text(messages::kOpenFilter), folder);
    if (!name.isEmpty()) openFile(name);
}

void Formstart::openFile(const QString& name)
{
    try {
        resetta();
        recFile_.open(QFileInfo(name).filesystemAbsoluteFilePath());
    } catch (const std::exception&) {
        const RuntimeError error = currentError();
        recFile_.reset();
        showState();
        showError(messages::kError, error);
        return;
    }
    navigator_->start();
    navigator_->focusNumber();
    showState();
    Form_Load();
}

void Formstart::Form_Load()
{
    if (!recFile_.hasName()) return;
    try {
        layOutFields();
        setCompatible(isEpiDataCompatible(recFile_.fields()));
        Check1_Click();
        recFile_.measure();
        navigator_->showCount();
        recordView_->showScrollBar(recFile_.fieldCount());
    } catch (const std::exception&) {
        const RuntimeError error = currentError();
        recFile_.close();
        showError(messages::kFileError, error);
    }
}

/// Reads the definitions and shows the fields, those before a faulty definition too.
void Formstart::layOutFields()
{
    const auto layOut = [this] {
        for (int n = 1; n <= recFile_.fieldCount(); ++n)
            recordView_->layOutField(recFile_.fields(), n);
    };
    try {
        recFile_.readDefinitions();
    } catch (const std::exception&) {
        layOut();
        throw;
    }
    layOut();
    searchPanel_->setTabOrderAfter(recordView_->Text2(recFile_.fieldCount()));
}

void Formstart::resetta()
{
    searchPanel_->abandon();
    cancella();
    recFile_.reset();
    recordView_->hideFields();
    navigator_->reset();
    searchStatus_->reset();
    canvas_->setFormColour({});
    Frame10->hide();
    menuTree_.reset();
    searchPanel_->reset();
    showState();
}

/// Invitation, title and menus by whether a file is open.
void Formstart::showState()
{
    const bool open = recFile_.hasName();
    Label7->setVisible(!open);
    const QString program = fromUtf8Text(messages::kProgram);
    const QString file = open ? QFileInfo(recFile_.dataFileName()).fileName() : QString();
    setWindowTitle(open ? file + QStringLiteral(" - ") + program : program);
    menuTree_.setFileOpen(open);
}

void Formstart::azzeravar()
{
    recordView_->azzeravar();
}

void Formstart::cancella()
{
    selections_.clear();
    recordView_->clearHighlights();
    searchPanel_->cancella();
    searchStatus_->cancella();
}

void Formstart::preferenze_Click()
{
    toggleFrame(QStringLiteral("preferenze"), Frame10);
    menuTree_.refresh();
    if (Frame10->isVisible()) Frame10->Check1->setFocus();
}

void Formstart::impostMaiusc_Click()
{
    recFile_.impostMaiusc = menuTree_.toggle(QStringLiteral("impostMaiusc"));
}

void Formstart::compEpidat_Click()
{
    setCompatible(!menuTree_.isTicked(QStringLiteral("compEpidat")));
}

void Formstart::setCompatible(bool compatible)
{
    menuTree_.setTicked(QStringLiteral("compEpidat"), compatible);
    recordView_->setCompatible(compatible);
}

void Formstart::adatta600_Click()
{
    const bool low = menuTree_.toggle(QStringLiteral("adatta600"));
    const int others = kTitleBar + menuBar()->height() + statusBar()->height();
    canvas_->setMostHeight(low ? kLowScreen - others : 0);
}

void Formstart::esci_Click()
{
    close();
}

void Formstart::EpiData_Click()
{
    try {
        recFile_.close();
        launchEpiData(recFile_.dataFileName());
    } catch (const std::exception&) {
        showError(messages::kFileError, currentError());
    }
}

void Formstart::note_Click()
{
    toggleFrame(QStringLiteral("note"), Frame7);
}

void Formstart::limiti_Click()
{
    toggleFrame(QStringLiteral("limiti"), Frame5);
}

void Formstart::versione_Click()
{
    toggleFrame(QStringLiteral("versione"), Frame6);
}

void Formstart::Check1_Click()
{
    const bool original = Frame10->Check1->isChecked();
    recordView_->useFileColours(original);
    canvas_->setFormColour(original ? paletteColour(recFile_.screenColour()) : QColor());
}

void Formstart::Check3_Click()
{
    if (!Frame10->Check3->isChecked()) return;
    Frame10->Check4->setChecked(false);
    Frame10->Check4->setEnabled(false);
    if (PrintMatrix_.empty()) dialogs_.message(BoxIcon::exclamation, fromUtf8Text(messages::kEmptyMatrix));
}

void Formstart::Command3_Click()
{
    azzeravar();
    cancella();
}

void Formstart::Text2_Click(int index)
{
    try {
        for (const ClickMode& mode : clickModes()) {
            if (!mode.appliesTo([this](const char* menu) { return menuTree_.isTicked(fromUtf8Text(menu)); }))
                continue;
            (selections_.*mode.list).append(index);
            recordView_->highlight(index, mode.box());
            if (mode.formColour < 0) continue;
            canvas_->setFormColour(paletteColour(mode.formColour));
            recordView_->setLabelColour(paletteColour(mode.formColour));
        }
    } catch (const RuntimeError&) {
        // A list that is full takes no more fields.
    }
}

void Formstart::toggleFrame(const QString& menu, QWidget* frame)
{
    const bool shown = menuTree_.toggle(menu);
    const bool focusWithin = focusWidget() && frame->isAncestorOf(focusWidget());
    if (shown && !qobject_cast<TitledFrame*>(focusWidget() ? focusWidget()->parentWidget() : nullptr)) {
        focusBeforeFrame_ = focusWidget();
    }
    frame->setVisible(shown);
    if (shown) frame->raise();
    if (!shown && focusWithin && focusBeforeFrame_) focusBeforeFrame_->setFocus();
}

/// Closes the frame that stands in front of all others.
void Formstart::closeTopFrame()
{
    TitledFrame* top = nullptr;
    for (QObject* child : canvas_->children()) {
        auto* frame = qobject_cast<TitledFrame*>(child);
        if (frame && frame->isVisible()) top = frame;
    }
    if (top) emit top->closeRequested();
}

void Formstart::goToRecord(const QString& number)
{
    if (recFile_.hasName()) navigator_->typeNumber(number);
}

void Formstart::showError(const char* prefix, const RuntimeError& error)
{
    dialogs_.message(BoxIcon::critical, fromUtf8Text(prefix) + fromUtf8Text(error.description()));
}

void Formstart::showHint(const QString& text)
{
    statusBar()->showMessage(text, kHintMilliseconds);
}

void Formstart::closeEvent(QCloseEvent* event)
{
    searchPanel_->abandon();
    QMainWindow::closeEvent(event);
}

void Formstart::dragEnterEvent(QDragEnterEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    if (!urls.isEmpty() && urls.constFirst().isLocalFile()) event->acceptProposedAction();
}

void Formstart::dropEvent(QDropEvent* event)
{
    const QString name = event->mimeData()->urls().constFirst().toLocalFile();
    event->acceptProposedAction();
    // The program that the file comes from waits until the drop is over; it should not wait for a box.
    QTimer::singleShot(0, this, [this, name] { openFile(name); });
}

}  // namespace quorvin
