/// The bold title of a frame on the form.
#pragma once

#include <QLabel>

namespace quorvin {

class TitleLabel : public QLabel {
public:
    TitleLabel(const QString& title, QWidget* parent) : QLabel(title, parent)
    {
        QFont bold = font();
        bold.setBold(true);
        setFont(bold);
    }
};

}  // namespace quorvin
