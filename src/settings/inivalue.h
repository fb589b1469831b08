// The values of an INI file as QSettings writes them: a text that begins with "@" stands for a value of another type.
#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace xe {

/// A value that is not read, since its stream is unknown or harmful. It is written as the text that it was read from,
/// so that nothing of it is lost.
struct SealedValue
{
    QString text;
    bool isHarmful;
};

/// What becomes of a value of a type that has no form of its own, which Qt keeps as the bytes of a stream.
enum class IniStream {
    None,    ///< it is no such value
    Read,    ///< it can be read
    Unknown, ///< not here and now: nobody has registered the type yet, or it has to wait for the application
    Harmful, ///< never: Qt believes how deep lists lie in lists, for which it takes the stack, and how long they are
};
IniStream iniStreamOf(const QString& text);

/// The value of one text, and of several with commas between them.
QVariant iniValue(const QString& text);
QVariant iniValue(const QStringList& texts);

/// The texts of a value. One, unless the value is a list.
QStringList iniTexts(const QVariant& value);

} // namespace xe

Q_DECLARE_METATYPE(xe::SealedValue)
