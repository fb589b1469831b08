#include "win/screening.h"

namespace xe {

const void* detail::plainScreening = nullptr;

bool detail::isScreeningOverridden(const void* screening)
{
    if (!plainScreening) {
        const CWnd_X plain;
        plainScreening = virtualTarget(&plain, &CWnd_X::PreTranslateMessage);
    }
    return screening != plainScreening;
}

bool screenMessage(CWnd_X& window, QObject& target, MessageParameters& message, PointerPosition& pointer)
{
    tagMSG record = {&target, message.message, message.wParam, message.lParam, 0, {0, 0}};
    stampMessage(record, pointer);
    const bool screened = window.PreTranslateMessage(&record);
    message = {record.message, record.wParam, record.lParam};
    return screened;
}

} // namespace xe
