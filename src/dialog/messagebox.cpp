#include "xeafxdlg.h"

#include "dialog/standardbuttons.h"
#include "win/animationkeeper.h"
#include "xehost.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

namespace {

constexpr unsigned yesNo = 4;

struct ButtonRow
{
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaults[3]; // for the first, second and third default button
};

// By the low three bits of the style. The row of Yes and No has buttons of its own.
const ButtonRow buttonRows[8] = {
    {QMessageBox::Ok, {QMessageBox::NoButton, QMessageBox::NoButton, QMessageBox::NoButton}},
    {QMessageBox::Ok | QMessageBox::Cancel, {QMessageBox::Ok, QMessageBox::Cancel, QMessageBox::Ok}},
    {QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore,
     {QMessageBox::Abort, QMessageBox::Retry, QMessageBox::Ignore}},
    {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
     {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}},
    {QMessageBox::NoButton, {QMessageBox::NoButton, QMessageBox::NoButton, QMessageBox::NoButton}},
    {QMessageBox::Retry | QMessageBox::Cancel, {QMessageBox::Retry, QMessageBox::Cancel, QMessageBox::Retry}},
    {QMessageBox::Cancel | QMessageBox::Retry | QMessageBox::Apply,
     {QMessageBox::Retry, QMessageBox::Cancel, QMessageBox::Apply}},
    {QMessageBox::Ok, {QMessageBox::NoButton, QMessageBox::NoButton, QMessageBox::NoButton}},
};

struct IconRow
{
    QMessageBox::Icon icon;
    const char16_t* caption;
};

IconRow iconRow(unsigned style)
{
    switch (style & 0x70) {
    case 0x40:
        return {QMessageBox::Information, u"提示"};
    case 0x10:
        return {QMessageBox::Critical, u"严重错误"};
    case 0x20:
        return {QMessageBox::Question, u"疑问"};
    default:
        return {QMessageBox::Warning, u"警告"};
    }
}

int resultOf(int standardButton)
{
    switch (standardButton) {
    case QMessageBox::Ok:
        return IDOK;
    case QMessageBox::Cancel:
        return IDCANCEL;
    case QMessageBox::Abort:
        return IDABORT;
    case QMessageBox::Retry:
        return IDRETRY;
    case QMessageBox::Ignore:
        return IDIGNORE;
    case QMessageBox::Yes:
    case QMessageBox::Apply:
        return IDYES;
    case QMessageBox::No:
        return IDNO;
    default:
        return IDCLOSE;
    }
}

} // namespace

int MessageBox_X(QWidget* owner, const wchar_t* text, const wchar_t* caption, unsigned style)
{
    const unsigned type = style & 7;
    const unsigned defaultIndex = (style & 0x300) >> 8;
    const IconRow icon = iconRow(style);
    const bool hasCaption = caption && *caption;

    // On the heap: the owner may be deleted while the box is up, and takes the box with it.
    const QPointer<QMessageBox> box = new QMessageBox(owner ? owner : TavoGetMainFrame());
    box->setIcon(icon.icon);
    box->setWindowTitle(hasCaption ? XeQString(caption) : QString::fromUtf16(icon.caption));
    box->setText(XeQString(text));

    QPushButton* yes = nullptr;
    QPushButton* no = nullptr;
    if (type == yesNo) {
        yes = box->addButton(QStringLiteral("是"), QMessageBox::ActionRole);
        no = box->addButton(QStringLiteral("否"), QMessageBox::ActionRole);
    } else {
        box->setStandardButtons(buttonRows[type].buttons);
        box->setDefaultButton(defaultIndex < 3 ? buttonRows[type].defaults[defaultIndex] : QMessageBox::NoButton);
    }
    xe::labelButton(*box, QDialogButtonBox::Cancel, xe::cancelLabel);
    xe::labelButton(*box, QDialogButtonBox::Ok, xe::okLabel);

    const xe::AnimationKeeper keeper;
    const int answer = box->exec();
    if (!box)
        return IDCLOSE;
    const QAbstractButton* const clicked = box->clickedButton();
    const int result = type != yesNo ? resultOf(answer) : clicked == yes ? IDYES : clicked == no ? IDNO : IDCLOSE;
    delete box;
    return result;
}

int AfxMessageBox_X(const wchar_t* text, unsigned style, unsigned)
{
    return MessageBox_X(QApplication::activeWindow(), text, nullptr, style);
}

int AfxMessageBox_X(unsigned id, unsigned style, unsigned)
{
    CString_X text;
    text.LoadString(id);
    return MessageBox_X(QApplication::focusWidget(), text, nullptr, style);
}

int CWnd_X::MessageBox(const wchar_t* text, const wchar_t* caption, UINT style)
{
    return GetSafeHwnd() ? MessageBox_X(GetSafeHwnd(), text, caption, style) : 0;
}

void CWnd_X::showPostedBox(QWidget* owner, const XeMsgBoxEvent& event)
{
    MessageBox_X(owner, event.text, event.caption, 0);
}
