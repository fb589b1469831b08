#pragma once

#include <QPoint>

// The pointer of the program, which the library asks for through QCursor::pos().

inline QPoint pointerPosition;
inline int pointerQuestions = 0;

inline void resetPointer()
{
    pointerPosition = {31, 17};
    pointerQuestions = 0;
}
