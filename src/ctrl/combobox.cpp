#include "XeCustomUI.h"
#include "ctrl/creation.h"
#include "xeafxctrl.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStandardItemModel>

#include <optional>

IMPLEMENT_DYNCREATE_X(CComboBox_X, CWnd_X)

int CComboBox_X::Create(DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT)
{
    const auto create = [&] { return CWnd_X::Create(style & ~WS_VSCROLL, rect, parent); };
    return xe::createAndFinish<QComboBox>(
        *this, create, [style](QComboBox& box) { box.setEditable((style & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST); });
}

bool CComboBox_X::AttachDefault(QWidget* parent) { return Attach(new XeCUIComboBox(parent), parent, false); }

// --------------------------------------------------------------------------------------------------------------- items

namespace {

// Qt makes the first item of all current, and writes it into the field. This takes both back.
class FirstItemGuard
{
public:
    explicit FirstItemGuard(QComboBox& box) : m_box(box), m_field(box.count() == 0 ? box.lineEdit() : nullptr)
    {
        if (m_field) {
            m_text = m_field->text();
            m_caret = m_field->cursorPosition();
        }
    }

    void restore()
    {
        m_box.setCurrentIndex(-1);
        if (m_field) {
            const QSignalBlocker blocker(m_field);
            m_field->setText(m_text);
            m_field->setCursorPosition(m_caret);
        }
    }

private:
    QComboBox& m_box;
    QLineEdit* const m_field;
    QString m_text;
    int m_caret = 0;
};

void insertItem(QComboBox& box, int index, const QString& text)
{
    const QSignalBlocker blocker(box);
    if (box.count() > 0)
        return box.insertItem(index, QIcon(), text, QVariant());
    FirstItemGuard guard(box);
    const std::optional<QSignalBlocker> fieldBlocker =
        box.lineEdit() ? std::optional<QSignalBlocker>(box.lineEdit()) : std::nullopt;
    box.insertItem(index, QIcon(), text, QVariant());
    guard.restore();
}

} // namespace

int CComboBox_X::GetCount() const
{
    const auto* const box = Imp<QComboBox>();
    return box && box->count() > 0 ? box->count() : CB_ERR;
}

int CComboBox_X::AddString(const wchar_t* text) { return InsertString(-1, text); }

int CComboBox_X::InsertString(int index, const wchar_t* text)
{
    auto* const box = Imp<QComboBox>();
    if (!box)
        return CB_ERR;
    const int count = box->count();
    const int place = index < 0 || index > count ? count : index;
    insertItem(*box, place, XeQString(text));
    return place;
}

int CComboBox_X::DeleteString(UINT index)
{
    auto* const box = Imp<QComboBox>();
    if (!box)
        return CB_ERR;
    const QSignalBlocker blocker(box);
    if (index < static_cast<UINT>(box->count()))
        box->removeItem(static_cast<int>(index));
    return box->count();
}

void CComboBox_X::ResetContent()
{
    const QSignalBlocker blocker(GetImpQObject());
    Clear();
}

void CComboBox_X::Clear()
{
    if (auto* const box = Imp<QComboBox>())
        box->clear();
}

int CComboBox_X::GetLBText(int index, CString_X& text) const
{
    text.Empty();
    const auto* const box = Imp<QComboBox>();
    if (!box)
        return CB_ERR;
    text = box->itemText(index);
    return text.GetLength();
}

// ----------------------------------------------------------------------------------------------------------- selection

namespace {

// The model that a box has of itself, whose items are faster to read than its indices; null for any other.
const QStandardItemModel* ownModel(const QComboBox& box)
{
    const QAbstractItemModel* const model = box.model();
    const bool isOwn = model->metaObject() == &QStandardItemModel::staticMetaObject && !box.rootModelIndex().isValid();
    return isOwn ? static_cast<const QStandardItemModel*>(model) : nullptr;
}

template <class Fits>
int firstItem(const QComboBox* box, int start, Fits fits)
{
    const int count = box ? box->count() : 0;
    const QStandardItemModel* const model = count ? ownModel(*box) : nullptr;
    const int column = count ? box->modelColumn() : 0;
    for (int i = qMax(start, 0); i < count; ++i) {
        const QStandardItem* const item = model ? model->item(i, column) : nullptr;
        if (fits(item ? item->text() : box->itemText(i)))
            return i;
    }
    return CB_ERR;
}

constexpr bool isAscii(QChar c) { return c.unicode() < 0x80; }

constexpr ushort lowerAscii(QChar c)
{
    const ushort unit = c.unicode();
    return unit >= 'A' && unit <= 'Z' ? unit | 0x20 : unit;
}

// QString::startsWith(), which folds each character by a table, only where a character needs that.
bool beginsWith(const QString& item, const QString& start)
{
    if (item.size() < start.size())
        return false;
    for (int i = 0; i < start.size(); ++i) {
        const QChar a = item[i];
        const QChar b = start[i];
        if (a == b)
            continue;
        if (!isAscii(a) || !isAscii(b))
            return item.startsWith(start, Qt::CaseInsensitive);
        if (lowerAscii(a) != lowerAscii(b))
            return false;
    }
    return true;
}

bool equals(const QString& a, const QString& b) { return a.size() == b.size() && beginsWith(a, b); }

std::optional<double> numberIn(const QString& text)
{
    bool ok = false;
    const double number = text.toDouble(&ok);
    return ok ? std::optional<double>(number) : std::nullopt;
}

} // namespace

int CComboBox_X::GetCurSel() const { return Imp<QComboBox>() ? Imp<QComboBox>()->currentIndex() : CB_ERR; }

int CComboBox_X::SetCurSel(int index)
{
    auto* const box = Imp<QComboBox>();
    if (!box)
        return CB_ERR;
    const QSignalBlocker blocker(box);
    box->setCurrentIndex(index);
    return box->currentIndex();
}

int CComboBox_X::FindString(int start, const wchar_t* text) const
{
    const XeQString wanted(text);
    return firstItem(Imp<QComboBox>(), start, [&](const QString& item) { return beginsWith(item, wanted); });
}

int CComboBox_X::FindStringExact(int start, const wchar_t* text) const
{
    const XeQString wanted(text);
    return firstItem(Imp<QComboBox>(), start, [&](const QString& item) { return equals(item, wanted); });
}

int CComboBox_X::SelectString(int, const wchar_t* text)
{
    const XeQString wanted(text);
    const std::optional<double> number = numberIn(wanted);
    const int found = firstItem(Imp<QComboBox>(), 0, [&](const QString& item) {
        if (equals(item, wanted))
            return true;
        const std::optional<double> other = number ? numberIn(item) : std::nullopt;
        return other && qAbs(*other - *number) < 1;
    });
    return found == CB_ERR ? CB_ERR : SetCurSel(found);
}

// ------------------------------------------------------------------------------------------------------ text and field

void CComboBox_X::GetWindowText(CString_X& text) const
{
    if (const auto* const box = Imp<QComboBox>())
        text = box->currentText();
}

void CComboBox_X::SetWindowText(const wchar_t* text)
{
    auto* const box = Imp<QComboBox>();
    if (!box)
        return;
    const QSignalBlocker blocker(box);
    const XeQString wanted(text);
    box->setCurrentText(wanted);
    const int found = box->findData(wanted, Qt::DisplayRole, Qt::MatchCaseSensitive);
    if (found >= 0)
        box->setCurrentIndex(found);
    if (QLineEdit* const field = box->lineEdit())
        field->setCursorPosition(0);
}

QLineEdit* CComboBox_X::GetEditBox() const { return Imp<QComboBox>() ? Imp<QComboBox>()->lineEdit() : nullptr; }

BOOL CComboBox_X::GetEditSel(int& start, int& end) const
{
    const QLineEdit* const field = GetEditBox();
    if (!field)
        return FALSE;
    const bool selected = field->hasSelectedText();
    start = selected ? field->selectionStart() : field->cursorPosition();
    end = selected ? field->selectionEnd() : field->cursorPosition();
    return TRUE;
}

BOOL CComboBox_X::SetEditSel(int start, int end)
{
    QLineEdit* const field = GetEditBox();
    if (!field)
        return FALSE;
    if (start == -1)
        field->setSelection(0, 0);
    else if (end == -1)
        field->selectAll();
    else if (start > field->text().size())
        field->end(false);
    else if (start >= 0)
        field->setSelection(start, qMin(end, field->text().size() - start));
    return TRUE;
}

int CComboBox_X::SetItemHeight(int index, UINT height)
{
    QLineEdit* const field = GetEditBox();
    if (!field)
        return CB_ERR;
    if (index == -1)
        field->setFixedHeight(static_cast<int>(height));
    return CB_OKAY;
}

void CComboBox_X::ShowDropDown(int show)
{
    auto* const box = Imp<QComboBox>();
    if (!box)
        return;
    if (show)
        box->showPopup();
    else
        box->hidePopup();
}

int CComboBox_X::SetDroppedWidth(UINT width)
{
    auto* const box = Imp<QComboBox>();
    if (!box)
        return CB_ERR;
    box->view()->setFixedWidth(static_cast<int>(width));
    return box->view()->width();
}

int CComboBox_X::GetDroppedWidth() const { return Imp<QComboBox>() ? Imp<QComboBox>()->view()->width() : CB_ERR; }

// ---------------------------------------------------------------------------------------------------------------- data

namespace {

void setData(QComboBox& box, int index, const QVariant& data)
{
    const QSignalBlocker blocker(box);
    box.setItemData(index, data);
}

} // namespace

int CComboBox_X::SetItemData(int index, unsigned long long data)
{
    auto* const box = Imp<QComboBox>();
    if (!box)
        return CB_ERR;
    setData(*box, index, data);
    return static_cast<int>(data);
}

DWORD_PTR CComboBox_X::GetItemData(int index) const
{
    const auto* const box = Imp<QComboBox>();
    return static_cast<DWORD_PTR>(box ? box->itemData(index).toLongLong() : CB_ERR);
}

int CComboBox_X::SetItemDataPtr(int index, void* data)
{
    auto* const box = Imp<QComboBox>();
    if (!box)
        return CB_ERR;
    setData(*box, index, QVariant::fromValue(data));
    return CB_OKAY;
}

void* CComboBox_X::GetItemDataPtr(int index) const
{
    const auto* const box = Imp<QComboBox>();
    return box ? box->itemData(index).value<void*>() : reinterpret_cast<void*>(static_cast<qintptr>(CB_ERR));
}
