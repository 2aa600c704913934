/// A frame with one of the built-in texts.
#pragma once

#include "app/TitledFrame.h"

class QPlainTextEdit;

namespace quorvin {

class TextFrame : public TitledFrame {
    Q_OBJECT

public:
    /// `boxName`: objectName of the text box; `text` in UTF-8.
    TextFrame(const QString& name, const QString& title, const QString& boxName, const char* text,
              QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QPlainTextEdit* box_;
};

}  // namespace quorvin
