#include "ctrl/tiptools.h"

namespace xe {

TipTool* TipTools::withKey(const wchar_t* key) const
{
    const auto found = m_byKey.find(std::wstring_view(key));
    return found == m_byKey.end() ? nullptr : const_cast<TipTool*>(&found->second);
}

QVector<TipTool*> TipTools::all() const
{
    QVector<TipTool*> tools;
    for (const auto& entry : m_byKey)
        tools.append(const_cast<TipTool*>(&entry.second));
    return tools;
}

TipTool& TipTools::add(QWidget& widget, const wchar_t* text)
{
    TipTool& tool = m_byKey[text];
    tool.cbSize = toolSize;
    tool.hwnd = &widget;
    tool.lpszText = const_cast<wchar_t*>(text);
    tool.key = text;
    tool.tip = XeQString(text);
    m_ofWidget[&widget].append(&tool);
    return tool;
}

void TipTools::remove(TipTool& tool)
{
    m_last = nullptr;
    const auto ofWidget = m_ofWidget.find(tool.hwnd);
    ofWidget->removeOne(&tool);
    if (ofWidget->isEmpty())
        m_ofWidget.erase(ofWidget);
    m_byKey.erase(m_byKey.find(tool.key));
}

} // namespace xe
