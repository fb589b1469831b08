#include "xeafxctrl.h"

#include <QListWidget>
#include <QSignalBlocker>

IMPLEMENT_DYNCREATE_X(CCheckListBox_X, CListBox_X)

namespace {

QListWidgetItem* itemAt(const CCheckListBox_X& box, int index)
{
    const auto* const list = box.Imp<QListWidget>();
    return list ? list->item(index) : nullptr;
}

Qt::CheckState stateOf(int check)
{
    return check == 1 ? Qt::Checked : check == 0 ? Qt::Unchecked : Qt::PartiallyChecked;
}

} // namespace

int CCheckListBox_X::AddString(const wchar_t* text) { return InsertString(-1, text); }

int CCheckListBox_X::InsertString(int index, const wchar_t* text)
{
    const int place = CListBox_X::InsertString(index, text);
    SetCheck(place, BST_UNCHECKED);
    return place;
}

void CCheckListBox_X::SetCheck(int index, int check)
{
    if (QListWidgetItem* const item = itemAt(*this, index)) {
        const QSignalBlocker blocker(item->listWidget());
        item->setCheckState(stateOf(check));
    }
}

int CCheckListBox_X::GetCheck(int index) const
{
    const QListWidgetItem* const item = itemAt(*this, index);
    const Qt::CheckState state = item ? item->checkState() : Qt::PartiallyChecked;
    return static_cast<int>(state == Qt::Checked     ? BST_CHECKED
                            : state == Qt::Unchecked ? BST_UNCHECKED
                                                     : BST_INDETERMINATE);
}

void CCheckListBox_X::Enable(int index, int enable)
{
    if (QListWidgetItem* const item = itemAt(*this, index)) {
        const QSignalBlocker blocker(item->listWidget());
        item->setFlags(item->flags().setFlag(Qt::ItemIsEnabled, enable != 0));
    }
}
