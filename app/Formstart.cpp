#include "app/Formstart.h"

#include <QAction>
#include <QCheckBox>
#include <QDropEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>
#include <exception>

#include "app/ClickModes.h"
#include "app/FormCanvas.h"
#include "app/FormFrames.h"
#include "app/FormPlaces.h"
#include "app/PreferencesFrame.h"
#include "app/PreferencesPanel.h"
#include "base/RuntimeError.h"
#include "output/DocumentPanel.h"
#include "output/ExportPanel.h"
#include "output/MatrixPanel.h"
#include "output/OutputPanel.h"
#include "search/HitListView.h"
#include "search/SearchPanel.h"
#include "search/SearchStatus.h"
#include "stats/StatPanel.h"
#include "view/Colours.h"
#include "view/Dialogs.h"
#include "view/EpiDataLaunch.h"
#include "view/FieldBox.h"
#include "view/Messages.h"
#include "view/Navigator.h"
#include "view/RecordView.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

/// Height in pixels of the screens that "risol.video vert.: 600" is for, and what a window's title takes of
/// it.
constexpr int kLowScreen = 600;
constexpr int kTitleBar = 30;

constexpr int kHintMilliseconds = 6000;

/// Place of the invitation on the form: left, top, width, height in columns and lines; 0 reaches to the edge.
constexpr QRectF kInvitationPlace(0, 12, 0, 6);

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
    auto* scroll = new QScrollArea(this);
    canvas_ = new FormCanvas(this);
    recordView_ = new RecordView(canvas_);
    navigator_ = new Navigator(recFile_, *recordView_, canvas_);
    navigator_->insertTools(recordView_->scaleBar());

    searchStatus_ = new SearchStatus(this);
    searchPanel_ = new SearchPanel(
        {recFile_, selections_, *recordView_, *navigator_, menuTree_, *searchStatus_}, canvas_);
    matrixPanel_ = new MatrixPanel({recFile_, *recordView_, menuTree_, dialogs_}, canvas_);
    outputPanel_ = new OutputPanel({recFile_, matrixPanel_->matrix(), *recordView_, *navigator_, menuTree_,
                                    *searchPanel_, *searchStatus_, dialogs_},
                                   canvas_);
    new ExportPanel({recFile_, matrixPanel_->matrix(), menuTree_, *searchPanel_, *searchStatus_, dialogs_},
                    canvas_);
    navigator_->insertTools(&outputPanel_->Command4());
    documentPanel_ = new DocumentPanel(
        {*recordView_, *navigator_, menuTree_, *matrixPanel_, *outputPanel_, dialogs_}, canvas_);
    statPanel_ =
        new StatPanel({recFile_, selections_, *navigator_, menuTree_, *searchPanel_, dialogs_}, canvas_);
    places_ =
        std::make_unique<FormPlaces>(FormParts{*scroll, *canvas_, menuTree_, *navigator_, *recordView_,
                                               *searchPanel_, *outputPanel_, *documentPanel_, *statPanel_});

    Label7 = new QLabel(fromUtf8Text(messages::kInvitation), canvas_);
    Label7->setObjectName(QStringLiteral("Label7"));
    Label7->setAlignment(Qt::AlignCenter);
    QFont large = Label7->font();
    large.setPointSizeF(large.pointSizeF() * 2);
    Label7->setFont(large);
    canvas_->place(Label7, kInvitationPlace);

    frames_ = new FormFrames(menuTree_, *canvas_, dialogs_);
    preferences_ = new PreferencesPanel(
        {recFile_, matrixPanel_->matrix(), *recordView_, *canvas_, menuTree_, dialogs_, *frames_->Frame10},
        this);
    menuTree_.addControl(*frames_->Frame10->Check1);
    menuTree_.addControl(*frames_->Frame10->Check3);
    menuTree_.addControl(searchPanel_->Frame3());

    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(canvas_);
    setCentralWidget(scroll);
    statusBar()->addWidget(searchStatus_, 1);
    statusBar()->addPermanentWidget(&searchPanel_->norecSign());
}

void Formstart::connectMenus()
{
    menuTree_.onClicks<Formstart>(*this, {{QStringLiteral("aprifile"), &Formstart::aprifile_Click},
                                          {QStringLiteral("preferenze"), &Formstart::preferenze_Click},
                                          {QStringLiteral("esci"), &Formstart::esci_Click},
                                          {QStringLiteral("EpiData"), &Formstart::EpiData_Click}});
    menuTree_.isBlocked = [this] { return isBusy(); };
}

void Formstart::connectParts()
{
    connect(canvas_, &FormCanvas::scaleChanged, recordView_, &RecordView::setScale);
    connect(canvas_, &FormCanvas::nextRequested, navigator_, &Navigator::pressNext);
    connect(canvas_, &FormCanvas::previousRequested, navigator_, &Navigator::pressPrevious);
    connect(canvas_, &FormCanvas::escapePressed, this, [this] {
        if (frames_->closeTop()) return;
        if (statPanel_->frame().isHidden()) {
            outputPanel_->closeFrame();
        } else {
            statPanel_->closeFrame();
        }
    });
    connect(recordView_, &RecordView::Text2_Click, this, &Formstart::Text2_Click);
    connect(navigator_, &Navigator::epiDataRequested, this, &Formstart::EpiData_Click);
    connect(navigator_, &Navigator::clearRequested, this, &Formstart::Command3_Click);
    connect(navigator_, &Navigator::expandRequested, &menuTree_.item(QStringLiteral("maxel")),
            &QAction::trigger);
    connect(navigator_, &Navigator::moveFailed, this, &Formstart::showHint);
    connect(preferences_, &PreferencesPanel::adatta600Changed, this, &Formstart::fitScreen);
    connectPanel(*searchPanel_);
    connectPanel(*matrixPanel_);
    connectPanel(*outputPanel_);
    connectPanel(*documentPanel_);
    connectPanel(*statPanel_);
    connectSearch();
    connectOutput();
    connectDocument();
    connectStatistics();
}

/// What the panels ask of the window alike; not all of them ask everything.
template<class Panel>
void Formstart::connectPanel(Panel& panel)
{
    connect(&panel, &Panel::azzeravarRequested, this, &Formstart::azzeravar);
    connect(&panel, &Panel::cancellaRequested, this, &Formstart::cancella);
    if constexpr (requires { &Panel::placesChanged; })
        connect(&panel, &Panel::placesChanged, this, [this] { places_->update(); });
    if constexpr (requires { &Panel::hint; }) connect(&panel, &Panel::hint, this, &Formstart::showHint);
}

void Formstart::connectSearch()
{
    searchPanel_->continuo = [this] {
        return dialogs_.question(BoxIcon::question, fromUtf8Text(messages::kContinue), QString());
    };
    connect(searchPanel_, &SearchPanel::fieldChosen, this, &Formstart::Text2_Click);
    connect(searchPanel_, &SearchPanel::searchFailed, this,
            [this](const RuntimeError& error) { showError(messages::kError, error); });
    connect(searchPanel_, &SearchPanel::hitFailed, this,
            [this](const RuntimeError& error) { showError(messages::kHitError, error); });
    connect(searchPanel_, &SearchPanel::epiDataRequested, this, &Formstart::EpiData_Click);
    connect(canvas_, &FormCanvas::scaleChanged, &searchPanel_->lists(), &HitLists::setScale);
    connect(frames_->Frame10->Check2, &QCheckBox::toggled, searchPanel_,
            [this](bool checked) { searchPanel_->Check2 = checked; });
}

void Formstart::connectOutput()
{
    connect(matrixPanel_, &MatrixPanel::choosingChanged, preferences_, &PreferencesPanel::Check1_Click);
    connect(matrixPanel_, &MatrixPanel::saveFailed, this,
            [this](const RuntimeError& error) { showError(messages::kFileError, error); });
    // The interval's boxes are typed in at once; a search is typed into the fields above.
    connect(outputPanel_, &OutputPanel::placesChanged, this, [this] {
        PrintFrame& frame = outputPanel_->printFrame();
        if (!frame.Frame8().isHidden()) places_->bringIntoSight(frame);
    });
}

void Formstart::connectDocument()
{
    // Modes that take the document's place.
    connect(matrixPanel_, &MatrixPanel::choosingChanged, documentPanel_, &DocumentPanel::followModes);
    connect(outputPanel_, &OutputPanel::modeChanged, documentPanel_, &DocumentPanel::followModes);
    connect(outputPanel_, &OutputPanel::fontChosen, documentPanel_, &DocumentPanel::setFont);
    connect(canvas_, &FormCanvas::scaleChanged, &documentPanel_->frame(), &DocumentFrame::setScale);
    connect(documentPanel_, &DocumentPanel::placesChanged, this,
            [this] { places_->bringIntoSight(documentPanel_->frame()); });
    searchPanel_->lists().elabcom = [this] { documentPanel_->elabcom(); };
    outputPanel_->addPrintout(documentPanel_->printout());
}

void Formstart::connectStatistics()
{
    connect(statPanel_, &StatPanel::modeChanged, preferences_, &PreferencesPanel::Check1_Click);
    connect(statPanel_, &StatPanel::tableShown, this,
            [this] { places_->bringIntoSight(statPanel_->frame()); });
    connect(outputPanel_, &OutputPanel::fontChosen, statPanel_, &StatPanel::setGridFont);
    connect(canvas_, &FormCanvas::scaleChanged, statPanel_, &StatPanel::setScale);
    outputPanel_->addPrintout(statPanel_->chartPrintout());
}

bool Formstart::isBusy() const
{
    return searchPanel_->isSearching() || outputPanel_->isPrinting() || statPanel_->isPresenting();
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
    if (!documentPanel_->settle()) return;
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
    outputPanel_->reset(recFile_.hasName());
    matrixPanel_->load();
    documentPanel_->load();
    if (!recFile_.hasName()) return;
    try {
        layOutFields();
        preferences_->setCompatible(recFile_.fields().isEpiDataCompatible());
        preferences_->Check1_Click();
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
    documentPanel_->frame().setTabOrderAfter(searchPanel_->lists().List2);
    outputPanel_->printFrame().setTabOrderAfter(searchPanel_->lists().List2);
    statPanel_->frame().setTabOrderAfter(searchPanel_->lists().List2);
}

void Formstart::resetta()
{
    abandon();
    cancella();
    recFile_.reset();
    recordView_->hideFields();
    navigator_->reset();
    searchStatus_->reset();
    canvas_->setFormColour({});
    frames_->Frame10->hide();
    menuTree_.reset();
    searchPanel_->reset();
    outputPanel_->reset(false);
    statPanel_->reset();
    matrixPanel_->load();
    documentPanel_->load();
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
    frames_->preferenze_Click();
}

void Formstart::fitScreen(bool low)
{
    const int others = kTitleBar + menuBar()->height() + statusBar()->height();
    canvas_->setMostHeight(low ? kLowScreen - others : 0);
}

void Formstart::esci_Click()
{
    endsAtOnce_ = true;
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

void Formstart::Command3_Click()
{
    azzeravar();
    cancella();
}

void Formstart::Text2_Click(int index)
{
    try {
        if (matrixPanel_->isChoosing()) matrixPanel_->Text2_Click(index);
        if (documentPanel_->isEditing()) documentPanel_->Text2_Click(index);
        for (const ClickMode& mode : clickModes()) {
            if (!mode.appliesTo([this](const char* menu) { return menuTree_.isTicked(fromUtf8Text(menu)); }))
                continue;
            (selections_.*mode.list).append(index);
            recordView_->highlight(index, mode.box());
            if (mode.labelColour >= 0) recordView_->setLabelColour(paletteColour(mode.labelColour));
        }
    } catch (const RuntimeError&) {
        // A list that is full takes no more fields.
    }
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

/// Ends at once what runs.
void Formstart::abandon()
{
    searchPanel_->abandon();
    outputPanel_->abandon();
}

void Formstart::closeEvent(QCloseEvent* event)
{
    if (!endsAtOnce_ && !documentPanel_->settle()) {
        event->ignore();
        return;
    }
    abandon();
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
    QTimer::singleShot(0, this, [this, name] {
        if (!isBusy()) openFile(name);
    });
}

}  // namespace quorvin
