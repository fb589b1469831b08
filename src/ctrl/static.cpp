#include "XeCustomUI.h"
#include "ctrl/creation.h"
#include "xeafxctrl.h"

IMPLEMENT_DYNCREATE_X(CStatic_X, CWnd_X)

int CStatic_X::Create(const wchar_t* text, DWORD style, const tagRECT& rect, xe::detail::ParentWindow parent, UINT)
{
    const auto create = [&] { return CWnd_X::Create(style, rect, parent); };
    return xe::createAndFinish<QWidget>(*this, create, [&](QWidget&) { SetWindowText(text); });
}

bool CStatic_X::AttachDefault(QWidget* parent) { return Attach(new XeCUILabel(parent), parent, false); }

void CStatic_X::GetWindowText(CString_X& text) const
{
    if (const auto* const label = Imp<QLabel>())
        text = label->text();
}

void CStatic_X::SetWindowText(const wchar_t* text)
{
    if (auto* const label = Imp<QLabel>())
        label->setText(XeQString(text));
}

QPixmap CStatic_X::GetBitmap() const
{
    const auto* const label = Imp<QLabel>();
    if (!label)
        return {};
#if QT_VERSION >= QT_VERSION_CHECK(5, 15, 0)
    return label->pixmap(Qt::ReturnByValue);
#else
    return label->pixmap() ? *label->pixmap() : QPixmap();
#endif
}

void CStatic_X::SetBitmap(const QPixmap& bitmap)
{
    if (auto* const label = Imp<QLabel>())
        label->setPixmap(bitmap);
}
