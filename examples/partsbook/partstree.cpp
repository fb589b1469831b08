#include "partstree.h"

#include "text.h"

#include <QSignalBlocker>
#include <xeresource.h>

#include <algorithm>

namespace {

struct Branch
{
    CString_X Part::*field;
    int limit; // characters of a name
    unsigned title;
    int picture;
};

constexpr Branch branches[] = {
    {&Part::kind, partlimit::kind, IDS_KINDS, CPartPictures::Kinds},
    {&Part::supplier, partlimit::supplier, IDS_SUPPLIERS, CPartPictures::Suppliers},
};

int pictureOf(const Branch& branch, const CString_X& name)
{
    return branch.field == &Part::kind ? CPartPictures::PlaceOfKind(name) : CPartPictures::Supplier;
}

} // namespace

IMPLEMENT_DYNAMIC_X(CPartsTree, CTreeCtrl_X)

bool CPartsTree::AttachDefault(QWidget* parent)
{
    auto* const tree = new QTreeWidget(parent);
    tree->setObjectName(ToStringId(IDC_TREE));
    tree->setFrameShape(QFrame::NoFrame);
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    tree->setIndentation(14);
    tree->setEditTriggers(QTreeWidget::NoEditTriggers);         // by Rename() alone
    tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // a long name is cut short
    Connect(tree, SIGNAL(itemChanged(QTreeWidgetItem*, int)), this, SLOT(OnItemChanged(QTreeWidgetItem*)));
    return Attach(tree, parent, false);
}

void CPartsTree::SetPictures(const CPartPictures& pictures) { SetImageList(pictures.Images(), TVSIL_NORMAL); }

void CPartsTree::Show(const PartsBook& book)
{
    std::vector<Entry> entries;
    for (int branch = 0; branch < static_cast<int>(std::size(branches)); ++branch) {
        for (const CString_X& name : book.namesOf(branches[branch].field))
            entries.push_back({branch, name});
    }
    if (GetCount() > 0 && entries == m_entries)
        return;
    Entry current;
    if (const Entry* const selected = EntryOf(GetSelectedItem()))
        current = {selected->branch, GetItemText(GetSelectedItem())}; // its name may be a new one
    m_entries = std::move(entries);
    Fill(current);
}

void CPartsTree::Fill(const Entry& current)
{
    const QSignalBlocker blocker(GetSafeHwnd());
    DeleteAllItems();
    SelectItem(InsertItem(loadText(IDS_ALL_PARTS), CPartPictures::Book, CPartPictures::Book));
    HTREEITEM tops[std::size(branches)];
    std::transform(std::begin(branches), std::end(branches), tops, [this](const Branch& branch) {
        return InsertItem(loadText(branch.title), branch.picture, branch.picture);
    });
    for (const Entry& entry : m_entries) {
        const int picture = pictureOf(branches[entry.branch], entry.name);
        const HTREEITEM item = InsertItem(entry.name, picture, picture, tops[entry.branch]);
        SetItemData(item, static_cast<ULONGLONG>(&entry - m_entries.data()) + 1);
        if (entry == current)
            SelectItem(item);
    }
    ExpandAll();
}

// The items that only head others have none.
const CPartsTree::Entry* CPartsTree::EntryOf(HTREEITEM item) const
{
    const ULONGLONG number = GetItemData(item);
    return number > 0 ? &m_entries.at(number - 1) : nullptr;
}

bool CPartsTree::Includes(const Part& part) const
{
    const Entry* const entry = EntryOf(GetSelectedItem());
    return !entry || part.*branches[entry->branch].field == entry->name;
}

void CPartsTree::SelectAll() { SelectItem(GetRootItem()); }

// ------------------------------------------------------------------------------------------------------------ renaming

bool CPartsTree::CanRename() const { return EntryOf(GetSelectedItem()); }

void CPartsTree::Rename()
{
    if (CanRename())
        EditLabel(GetSelectedItem());
}

// Not only by the user. The parts follow when the editor has gone.
void CPartsTree::OnItemChanged(QTreeWidgetItem* item)
{
    const Entry* const entry = EntryOf(item);
    const CString_X name = GetItemText(item);
    if (!entry || name == entry->name)
        return;
    const Branch& branch = branches[entry->branch];
    if (name.IsEmpty() || XeQString(name).size() > branch.limit) {
        SetItemText(item, entry->name);
        return;
    }
    m_renaming = {branch.field, entry->name, name};
    PostMessage_X(GetSafeHwnd()->window(), WM_RENAMED, 0, reinterpret_cast<LPARAM>(&m_renaming));
}
