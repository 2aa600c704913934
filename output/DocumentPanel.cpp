#include "output/DocumentPanel.h"

#include <exception>
#include <utility>

#include "base/RuntimeError.h"
#include "output/DocumentEdit.h"
#include "output/MatrixPanel.h"
#include "output/OutputPanel.h"
#include "output/RichTextDocument.h"
#include "view/AnsiText.h"
#include "view/Colours.h"
#include "view/Dialogs.h"
#include "view/FieldBox.h"
#include "view/MenuState.h"
#include "view/Messages.h"
#include "view/Navigator.h"
#include "view/RecordView.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

const QString kImpostadoc = QStringLiteral("impostadoc");
const QString kDocumento = QStringLiteral("documento");

/// Colours of a box whose marker was put in, 0xBBGGRR.
constexpr std::uint32_t kRose = 0x8080FF;
constexpr std::uint32_t kWhite = 0xFFFFFF;

}  // namespace

DocumentPanel::DocumentPanel(const DocumentParts& parts, QWidget* form) :
    QObject(form),
    parts_(parts),
    frame_(new DocumentFrame(parts.dialogs, form)),
    printout_(*frame_)
{
    frame_->hide();
    parts_.menu.onClicks<DocumentPanel>(*this, {{kImpostadoc, &DocumentPanel::impostadoc_Click},
                                                {kDocumento, &DocumentPanel::documento_Click}});
    connect(&frame_->Textcomunic(), &DocumentEdit::tooLong, this,
            [this] { emit hint(QStringLiteral("non inserito: il documento diventerebbe troppo lungo")); });
}

void DocumentPanel::load()
{
    template_ = {};
    try {
        template_ = DocumentTemplate(parts_.matrix.matrix().DocumentTemplate);
    } catch (const std::exception&) {
        emit hint(QStringLiteral("documento non letto: ") + fromUtf8Text(currentError().description()));
    }
    showTemplate();
    followModes();
}

bool DocumentPanel::settle()
{
    if (isEditing()) {
        endEditing();
    } else if (unsaved_) {
        askToSave(template_.Textserb);
    }
    return !unsaved_;
}

// The modes

bool DocumentPanel::isEditing() const
{
    return parts_.menu.isTicked(kImpostadoc);
}

void DocumentPanel::followModes()
{
    const Mode shown = parts_.menu.isTicked(kDocumento) ? Mode::showing : Mode::none;
    const Mode mode = isEditing() ? Mode::editing : shown;
    if (mode == mode_) return;
    const bool ofDocument = mode == Mode::showing;
    if (ofDocument || mode_ == Mode::showing)
        parts_.output.setPrinterFont(ofDocument ? documentFont() : Printer::usualFont());
    mode_ = mode;
    const bool focusWithin = frame_->isAncestorOf(frame_->window()->focusWidget());
    showTemplate();
    frame_->setEditing(mode == Mode::editing);
    frame_->setVisible(mode != Mode::none);
    if (focusWithin) parts_.navigator.focusNext();
    emit placesChanged();
}

void DocumentPanel::impostadoc_Click()
{
    if (isEditing()) {
        endEditing();
    } else {
        beginEditing();
    }
}

void DocumentPanel::documento_Click()
{
    if (isEditing()) endEditing();
    const bool on = !parts_.menu.isTicked(kDocumento);
    parts_.menu.setMode(kDocumento, on);
    followModes();
    if (on && template_.Textserb.empty())
        emit hint(QStringLiteral("il documento è vuoto: si scrive con \"imposta documento\""));
}

void DocumentPanel::beginEditing()
{
    parts_.menu.setMode(kImpostadoc, true);
    followModes();
    unchanged_ = frame_->Textcomunic().content();
    emit azzeravarRequested();
    emit cancellaRequested();
    frame_->Textcomunic().setFocus();
    emit hint(QStringLiteral("clic su un campo: il suo segnaposto va nel testo, dove sta il cursore"));
}

void DocumentPanel::endEditing()
{
    parts_.menu.setMode(kImpostadoc, false);
    parts_.recordView.enableBoxes();
    parts_.recordView.clearHighlights();
    const RichText edited = frame_->Textcomunic().content();
    if (edited != unchanged_ || unsaved_) askToSave(edited);
    followModes();
}

void DocumentPanel::askToSave(const RichText& edited)
{
    if (parts_.dialogs.question(BoxIcon::question, fromUtf8Text(messages::kSaveDocument), {})) {
        template_.Textserb = edited;
        unsaved_ = !parts_.matrix.saveTemplate(template_.toStored());
    } else if (std::exchange(unsaved_, false)) {
        template_ = DocumentTemplate(parts_.matrix.matrix().DocumentTemplate);
    }
}

/// Has the box hold the template as it is.
void DocumentPanel::showTemplate()
{
    frame_->Textcomunic().setContent(template_.Textserb);
}

// Markers

void DocumentPanel::Text2_Click(int index)
{
    DocumentEdit& box = frame_->Textcomunic();
    if (box.textCursor().selectionStart() == 0) {
        emit hint(
            QStringLiteral("il segnaposto non va all'inizio del documento: spostare il cursore nel testo"));
    } else {
        parts_.recordView.highlight(index, {bgrColour(kRose), bgrColour(kWhite)});
        box.replaceSelection(QString::fromStdString(DocumentTemplate::marker(index)));
    }
    box.setFocus();
}

void DocumentPanel::elabcom()
{
    if (!parts_.menu.isTicked(kDocumento)) return;
    const auto fieldText = [this](int n) {
        const FieldBox* box = parts_.recordView.Text2(n);
        if (!box) throw RuntimeError(ErrorNumber::subscript);
        return toAnsi(box->text());
    };
    RichText filled;
    std::exception_ptr failure;
    try {
        template_.elabcom(fieldText, filled);
    } catch (const std::exception&) {
        failure = std::current_exception();
    }
    frame_->Textcomunic().setContent(filled);
    if (failure) std::rethrow_exception(failure);
}

void DocumentPanel::setFont(const QFont& font)
{
    if (mode_ != Mode::none) frame_->Textcomunic().setWholeFont(font);
}

}  // namespace quorvin
