/// The document on the form: Textcomunic, with the format bar above it while it can be edited.
#pragma once

#include <QFrame>

namespace quorvin {

class Dialogs;
class DocumentEdit;
class FormatBar;
class FormScale;

/// Frame9.
class DocumentFrame : public QFrame {
    Q_OBJECT

public:
    DocumentFrame(Dialogs& dialogs, QWidget* parent);

    DocumentEdit& Textcomunic() { return *textcomunic_; }
    const DocumentEdit& Textcomunic() const { return *textcomunic_; }

    /// Whether the user may change the document; it has its own size then.
    void setEditing(bool editing);
    bool isEditing() const { return editing_; }
    void setScale(const FormScale& scale);
    /// Stands the frame's controls behind this one for the Tab key.
    void setTabOrderAfter(QWidget* control);

private:
    void resizeBox();

    FormatBar* bar_;
    DocumentEdit* textcomunic_;
    bool editing_ = false;
    QSize editSize_;  ///< pixels
};

}  // namespace quorvin
