// The tools of a tool tip control.
#pragma once

#include "xetooltipctrl.h"

#include <QHash>
#include <QString>
#include <QVector>

#include <cwchar>
#include <map>
#include <string>

namespace xe {

struct TipTool : tagTOOLINFOW
{
    std::wstring key; ///< what the text was when the tool was added
    QString tip;      ///< the same for Qt

    /// Whether the text, which is the host's, is what it was.
    bool hasItsText() const { return std::wcscmp(lpszText, key.c_str()) == 0; }
};

/// What every tool has as its size, whatever the record's is.
inline constexpr UINT toolSize = 8;

/// Owns the tools and finds them by widget and by key.
class TipTools
{
public:
    /// The one of a widget that was added first; null if there is none.
    TipTool* first(const QObject* widget) const
    {
        if (m_last && m_last->hwnd == widget)
            return m_last; // a pointer moves over a widget for a while
        const auto found = m_ofWidget.constFind(widget);
        return found == m_ofWidget.cend() ? nullptr : m_last = found->first();
    }

    TipTool* withKey(const wchar_t* key) const;
    const QVector<TipTool*> of(const QObject* widget) const { return m_ofWidget.value(widget); }
    QVector<TipTool*> all() const;

    TipTool& add(QWidget& widget, const wchar_t* text);
    void remove(TipTool& tool);

private:
    std::map<std::wstring, TipTool, std::less<>> m_byKey;
    QHash<const QObject*, QVector<TipTool*>> m_ofWidget;
    mutable TipTool* m_last = nullptr;
};

} // namespace xe
