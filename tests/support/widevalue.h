// Wide texts as data of a row, and in the message of a failed comparison.
#pragma once

#include <QString>
#include <QTest>

#include <string>

Q_DECLARE_METATYPE(std::wstring)

namespace QTest {

template <>
inline char* toString(const std::wstring& text)
{
    return toString(QString::fromStdWString(text));
}

} // namespace QTest
