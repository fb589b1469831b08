#include "bookarchive.h"

#include "text.h"

#include <xeafxarc.h>
#include <xeafxfile.h>

namespace {

const CString_X heading = L"Parts Book";
const CString_X endMark = L"end of parts";
constexpr int version = 2; // from 2 on with the last two fields of a part

constexpr int largeCount = 5000; // parts, from which on reading takes a time that is noticed

CArchive_X& operator<<(CArchive_X& archive, const Part& part)
{
    archive << part.number << part.name << part.kind << part.supplier << part.source;
    return archive << part.stock << part.minimum << part.price << part.inUse << part.remark << part.delivered
                   << part.picture;
}

Part readPart(CArchive_X& archive, int storedVersion)
{
    Part part;
    archive >> part.number >> part.name >> part.kind >> part.supplier >> part.source;
    archive >> part.stock >> part.minimum >> part.price >> part.inUse >> part.remark;
    if (storedVersion >= 2)
        archive >> part.delivered >> part.picture;
    return part;
}

template <class Value>
Value read(CArchive_X& archive)
{
    Value value{};
    archive >> value;
    return value;
}

// A part goes by the rules of a line in a CSV file.
CString_X problemWith(const Part& part)
{
    const bool hasWords = part.source >= Part::Bought && part.source <= Part::FromCustomer
                          && part.inUse >= Part::OutOfUse && part.inUse <= Part::EndingUse;
    Part ignored;
    return hasWords ? readPart(fieldsOf(part), ignored) : loadText(IDS_DAMAGED);
}

} // namespace

QByteArray archiveOf(const std::vector<Part>& parts)
{
    CMemFile_X file;
    CArchive_X archive(&file, CArchive_X::store);
    archive << heading << version;
    archive.WriteCount(parts.size());
    for (const Part& part : parts)
        archive << part;
    archive << endMark;
    archive.Close();

    QByteArray bytes(static_cast<int>(file.GetLength()), Qt::Uninitialized);
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<unsigned>(bytes.size()));
    return bytes;
}

// An archive does not tell where it ends: what is behind that reads as nothing, and nothing is no part.
CString_X readArchive(QByteArray bytes, std::vector<Part>& parts, const Progress& progress)
{
    CMemFile_X file(reinterpret_cast<unsigned char*>(bytes.data()), static_cast<unsigned>(bytes.size()));
    CArchive_X archive(&file, CArchive_X::load);
    if (read<CString_X>(archive) != heading)
        return loadText(IDS_NO_BOOK);
    const int storedVersion = read<int>(archive);
    if (storedVersion < 1 || storedVersion > version)
        return loadText(IDS_OTHER_VERSION);
    std::vector<Part> taken;
    const auto count = archive.ReadCount();
    const bool tells = progress && count >= largeCount;
    for (auto i = decltype(count){0}; i < count; ++i) {
        if (tells && i % (count / 100) == 0)
            progress(static_cast<int>(i / (count / 100)));
        taken.push_back(readPart(archive, storedVersion));
        const CString_X problem = problemWith(taken.back());
        if (!problem.IsEmpty())
            return formatText(loadText(IDS_BAD_PART), static_cast<int>(taken.size()), problem);
    }
    if (read<CString_X>(archive) != endMark)
        return loadText(IDS_DAMAGED);
    parts = std::move(taken);
    return {};
}
