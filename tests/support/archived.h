// Objects on an archive in memory.
#pragma once

#include "xeafxarc.h"
#include "xeafxfile.h"

#include <QByteArray>

inline QByteArray contents(CMemFile_X& file)
{
    QByteArray bytes(int(file.GetLength()), '\0');
    file.Seek(0, CFile_X::begin);
    file.Read(bytes.data(), unsigned(bytes.size()));
    return bytes;
}

/// What the object stores on an archive.
inline QByteArray stored(CObject_X& object)
{
    CMemFile_X file;
    CArchive_X archive(&file, CArchive_X::store);
    object.Serialize(archive);
    archive.Close();
    return contents(file);
}

/// Loads the object and returns what is left of the bytes.
inline QByteArray load(CObject_X& object, QByteArray bytes)
{
    CMemFile_X file(reinterpret_cast<unsigned char*>(bytes.data()), unsigned(bytes.size()));
    CArchive_X archive(&file, CArchive_X::load);
    object.Serialize(archive);
    QByteArray rest(bytes.size() + 1, '\0');
    rest.truncate(int(archive.Read(rest.data(), unsigned(rest.size()))));
    return rest;
}

inline QByteArray hex(const char* digits) { return QByteArray::fromHex(digits); }
