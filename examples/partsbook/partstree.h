#pragma once

#include "partpictures.h"
#include "partsbook.h"

#include <xetreectrl.h>

/// Posted to the main window: the user has renamed an entry of the tree. lParam is the address of a Renaming, which
/// stays until the next one.
constexpr UINT WM_RENAMED = WM_USER + 3;

struct Renaming
{
    CString_X Part::*field; ///< of the parts that have the old name
    CString_X from;
    CString_X to;
};

/// The kinds and the suppliers of a book, with all parts as the first entry. The current entry says which parts are
/// shown. A kind or a supplier is renamed in its place.
class CPartsTree : public CTreeCtrl_X
{
    Q_OBJECT
    DECLARE_DYNAMIC_X(CPartsTree)

    void SetPictures(const CPartPictures& pictures);
    /// Lists the kinds and the suppliers of a book. The current entry stays so; one that there is no more gives way to
    /// all parts.
    void Show(const PartsBook& book);
    /// Whether the current entry is for this part.
    bool Includes(const Part& part) const;
    void SelectAll();
    /// Whether the current entry has a name that can be changed.
    bool CanRename() const;
    /// Lets the user change the name of the current entry.
    void Rename();

    bool AttachDefault(QWidget* parent) override;

private Q_SLOTS:
    void OnItemChanged(QTreeWidgetItem* item);

private:
    struct Entry
    {
        int branch = -1;
        CString_X name;

        bool operator==(const Entry& other) const { return branch == other.branch && name == other.name; }
    };

    void Fill(const Entry& current);
    const Entry* EntryOf(HTREEITEM item) const;

    std::vector<Entry> m_entries; // an item's data is the number of its entry, from 1
    Renaming m_renaming{};
};
