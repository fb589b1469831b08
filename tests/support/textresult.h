// What the tests here show of texts and exceptions.
#pragma once

#include <xeafxstr.h>

#include <QMetaType>
#include <QString>

#include <stdexcept>
#include <string>
#include <typeinfo>

Q_DECLARE_METATYPE(std::wstring)

/// The whole text, embedded zeros included, each element as a code point.
inline QString shown(const std::wstring& text) { return QString::fromStdWString(text); }

/// What a call throws: "nothing", "range_error: what", or the name of the type alone where the words are the standard
/// library's own.
template <class Call>
QString thrownBy(Call call)
{
    try {
        call();
    } catch (const std::exception& exception) {
        const std::type_info& type = typeid(exception);
        if (type == typeid(std::range_error))
            return QStringLiteral("range_error: ") + QLatin1String(exception.what());
        if (type == typeid(std::out_of_range))
            return QStringLiteral("out_of_range");
        if (type == typeid(std::length_error))
            return QStringLiteral("length_error");
        if (type == typeid(std::logic_error))
            return QStringLiteral("logic_error");
        if (type == typeid(std::runtime_error))
            return QStringLiteral("runtime_error");
        return QLatin1String(type.name());
    }
    return QStringLiteral("nothing");
}
