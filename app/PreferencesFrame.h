/// The preferences that belong to the open file.
#pragma once

#include "app/TitledFrame.h"

class QCheckBox;

namespace quorvin {

/// Frame10 with its four check boxes. Check4 belongs to the spreadsheet, which is not part of this version,
/// and stays disabled.
class PreferencesFrame : public TitledFrame {
    Q_OBJECT

public:
    explicit PreferencesFrame(QWidget* parent);

    QCheckBox* Check1;  ///< "colori file originali"
    QCheckBox* Check2;  ///< "visualizza ultimi due campi di ricerca"
    QCheckBox* Check3;  ///< "griglie campi selez."
    QCheckBox* Check4;  ///< "foglio Excel "

private:
    QCheckBox* addBox(const QString& name, const QString& caption);
};

}  // namespace quorvin
