#include "output/MatrixPanel.h"

#include <exception>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "rec/RecFile.h"
#include "view/AnsiText.h"
#include "view/Colours.h"
#include "view/Dialogs.h"
#include "view/MenuState.h"
#include "view/Messages.h"
#include "view/RecordView.h"
#include "view/Utf8.h"

namespace quorvin {

namespace {

const QString kImpmat = QStringLiteral("impmat");

/// What was saved, in words.
const QString kMatrix = QStringLiteral("matrice di stampa salvata");

/// Colours of the chosen boxes, 0xBBGGRR.
constexpr std::uint32_t kDarkGreen = 0x008000;
constexpr std::uint32_t kWhite = 0xFFFFFF;

}  // namespace

MatrixPanel::MatrixPanel(const MatrixParts& parts, QObject* form) : QObject(form), parts_(parts)
{
    parts_.menu.onClick(kImpmat, [this] { impmat_Click(); });
    parts_.menu.onClick(QStringLiteral("intestazione"), [this] { intestazione_Click(); });
    parts_.menu.onClick(QStringLiteral("margstamp"), [this] { margstamp_Click(); });
}

void MatrixPanel::load()
{
    matrix_.clear();
    if (!parts_.recFile.hasName()) return;
    try {
        matrix_.read(parts_.recFile);
    } catch (const std::exception&) {
        emit hint(QStringLiteral("matrice di stampa non letta: ") +
                  fromUtf8Text(currentError().description()));
    }
}

bool MatrixPanel::isChoosing() const
{
    return parts_.menu.isTicked(kImpmat);
}

void MatrixPanel::impmat_Click()
{
    if (!isChoosing()) {
        beginChoice();
        return;
    }
    parts_.menu.setMode(kImpmat, false);
    parts_.recordView.releaseBoxes();
    emit choosingChanged();
    emit azzeravarRequested();
    emit cancellaRequested();
    if (matrix_.endChoice()) {
        save(kMatrix);
    } else {
        emit hint(QStringLiteral("resta la matrice di prima, campi: %1").arg(matrix_.SavedMatrixCount()));
    }
}

void MatrixPanel::beginChoice()
{
    parts_.menu.setMode(kImpmat, true);
    matrix_.beginChoice();
    emit azzeravarRequested();
    emit choosingChanged();
    parts_.recordView.setLabelColour({});
    parts_.recordView.clearHighlights();
    emit hint(QStringLiteral("clic sui campi nell'ordine di stampa, poi ancora \"imposta matrice\""));
}

void MatrixPanel::Text2_Click(int index)
{
    matrix_.entries.append(index);
    parts_.recordView.keepBox(index, {bgrColour(kDarkGreen), bgrColour(kWhite)});
    emit hint(QStringLiteral("campi nella matrice: %1").arg(matrix_.PrintMatrixCount()));
}

void MatrixPanel::intestazione_Click()
{
    const QString current = fromAnsi(matrix_.PrintHeader);
    const QString answer = parts_.dialogs.inputBox(fromUtf8Text(messages::kHeaderPrompt) + current, current);
    if (answer.isEmpty()) return;
    matrix_.PrintHeader = toAnsi(answer);
    save(kMatrix);
}

void MatrixPanel::margstamp_Click()
{
    const QString prompt = fromUtf8Text(messages::kMarginPrompt) +
                           fromAnsi(str(std::int64_t{matrix_.PrintMargin})) +
                           fromUtf8Text(messages::kMarginPromptEnd);
    const QString answer = parts_.dialogs.inputBox(prompt, QString());
    if (matrix_.setMargin(val(toAnsi(answer)))) save(kMatrix);
}

bool MatrixPanel::saveTemplate(std::string stored)
{
    std::swap(matrix_.DocumentTemplate, stored);
    const bool saved = save(QStringLiteral("documento salvato"));
    if (!saved) matrix_.DocumentTemplate = std::move(stored);
    return saved;
}

bool MatrixPanel::save(const QString& what)
{
    try {
        matrix_.matrice(parts_.recFile);
        emit hint(what + QStringLiteral(" accanto al file"));
        return true;
    } catch (const std::exception&) {
        emit saveFailed(currentError());
        return false;
    }
}

}  // namespace quorvin
