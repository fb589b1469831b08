#include "xeafxdc.h"

#include "core/nullobject.h"
#include "gfx/defaultpalette.h"
#include "gfx/painterslots.h"
#include "state/handlemapmaker.h"
#include "xeafxwin.h"

IMPLEMENT_DYNCREATE_X(CDC_X, CObject_X)

CDC_X::CDC_X() = default;

CDC_X::CDC_X(QImage* image) { startOn(image); }

CDC_X::CDC_X(QWidget* widget) { startOn(widget); }

CDC_X::~CDC_X()
{
    leaveMap();
    for (const void* slot : m_slots)
        xe::forgetPainterSlot(slot);
}

void CDC_X::startOn(QPaintDevice* device)
{
    m_palette.m_entries = xe::defaultPalette();
    if (device)
        begin(device);
}

CClientDC_X::CClientDC_X(CWnd_X* window) : CDC_X(window ? window->GetSafeHwnd() : nullptr) {}

CClientDC_X::~CClientDC_X() = default;

// ----------------------------------------------------------------------------------------------------------- handles

int CDC_X::Attach(void* handle)
{
    if (!handle)
        return 0;
    leaveMap();
    m_hDC = handle;
    afxMapHDC_X(1)->SetPermanent(handle, this);
    SetAttribDC(handle);
    return 1;
}

void* CDC_X::Detach()
{
    leaveMap();
    ReleaseAttribDC();
    return std::exchange(m_hDC, nullptr);
}

// A temporary context is not in the permanent half, and another context may have attached the same handle since.
void CDC_X::leaveMap() { xe::removePermanent(afxMapHDC_X(), m_hDC, this); }

CDC_X* CDC_X::FromHandle(void* handle) { return static_cast<CDC_X*>(afxMapHDC_X(1)->FromHandle(handle)); }

void CDC_X::DeleteTempMap() { xe::deleteTemp(afxMapHDC_X()); }

void* CDC_X::GetSafeHdc() const
{
    const CDC_X* const dc = xe::maybeNull(this);
    return dc ? dc->m_hDC : nullptr;
}

void CDC_X::SetAttribDC(void* handle) { m_hAttribDC = handle; }

void CDC_X::ReleaseAttribDC() { m_hAttribDC = nullptr; }

// ----------------------------------------------------------------------------------------------------- free functions

HDC GetDC_X(void*) { return nullptr; }

int ReleaseDC_X(void*, void*) { return 0; }

int GetDeviceCaps_X(void*, int) { return 0; }

BOOL DeleteDC_X(void* dc)
{
    delete static_cast<QPainter*>(dc);
    return 1;
}
