// The texts of the standard buttons, which are Chinese whatever the locale.
#pragma once

#include <QDialogButtonBox>
#include <QPushButton>

namespace xe {

inline constexpr char16_t okLabel[] = u"确定";
inline constexpr char16_t cancelLabel[] = u"取消";

/// Nothing if the dialog has no such button.
inline void labelButton(const QWidget& dialog, QDialogButtonBox::StandardButton button, const char16_t* label)
{
    const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    if (QPushButton* const found = buttons ? buttons->button(button) : nullptr)
        found->setText(QString::fromUtf16(label));
}

} // namespace xe
