/// The two list boxes beside the record, of which at most one is shown.
#pragma once

#include <QObject>
#include <QRectF>
#include <functional>

namespace quorvin {

class FormScale;
class HitList;
class HitListModel;
class HitListView;
class Navigator;
class RecordView;
class RuntimeError;

/// Owns List1 and List2, both views of the one hit list. What a line means is read back from its text.
class HitLists : public QObject {
    Q_OBJECT

public:
    HitLists(const HitList& hits, Navigator& navigator, RecordView& recordView, QWidget* form);

    HitListView* const List1;
    HitListView* const List2;

    /// Shows List2, else List1; hides both when not `shown`.
    void show(bool shown, bool sorted);
    /// The list that is shown, or null.
    HitListView* shown() const;

    /// Size and place of both lists in form units.
    static QRectF place(bool maxel);
    void setScale(const FormScale& scale);

    /// Called when a clicked hit is shown; what it raises is the click's error.
    std::function<void()> elabcom = [] {};

    /// Takes the lines off the screen; to be called before they are deleted.
    void empty();
    /// Shows lines that were added; not `all` while more are to come.
    void update(bool all);

signals:
    /// A click that ended in an error.
    void failed(const RuntimeError& error);
    void epiDataRequested();

private:
    void List1_Click(int row);
    void List2_Click(int row);
    void List1_MouseDown(int row);
    void List2_MouseDown(int row);
    void showHit(const HitListView& list, int row);

    const HitList& hits_;
    Navigator& navigator_;
    RecordView& recordView_;
    HitListModel* model_;
};

}  // namespace quorvin
