/// The guide, and the way to its fuller form.
#pragma once

#include "app/TextFrame.h"

namespace quorvin {

class GuideFrame : public TextFrame {
    Q_OBJECT

public:
    explicit GuideFrame(QWidget* parent);

signals:
    /// The button under the text was pressed.
    void fullGuideRequested();
};

}  // namespace quorvin
