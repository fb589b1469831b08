#include "xeafxarray.h"

#include "data/archivelimits.h"
#include "xeafxarc.h"

#include <algorithm>
#include <utility>

namespace {

// Sets the size of an array and forgets what was in it. The block stays where it is large enough.
template <class Array>
void startAnew(Array& array, long long size)
{
    array.SetSize(size, -1);
    std::fill_n(array.GetData(), size, std::decay_t<decltype(array[0])>());
}

// Loads as many elements as the archive announces, but makes room for more than some only as long as data come.
template <class Array, class LoadRange>
void load(Array& array, CArchive_X& archive, LoadRange loadRange)
{
    const auto count = static_cast<long long>(archive.ReadCount());
    startAnew(array, std::min(count, xe::believedWithoutData));
    for (long long size = 0; size < count && (size == 0 || xe::hasMore(archive));) {
        const long long first = std::exchange(size, std::min(count, std::max(2 * size, xe::believedWithoutData)));
        array.SetSize(size, -1);
        loadRange(first, size);
    }
}

// Hands elements over in pieces whose bytes a signed 32-bit number can count.
template <class Element, class Transfer>
void transferRaw(Element* next, long long left, Transfer transfer)
{
    constexpr long long largestPiece = 0x7FFFFFFF / sizeof(Element);
    while (left > 0) {
        const long long piece = std::min(left, largestPiece);
        transfer(next, static_cast<unsigned>(piece) * static_cast<unsigned>(sizeof(Element)));
        next += piece;
        left -= piece;
    }
}

template <class Array>
void serializeRaw(Array& array, CArchive_X& archive)
{
    if (archive.IsStoring()) {
        archive.WriteCount(static_cast<unsigned long long>(array.GetSize()));
        transferRaw(array.GetData(), array.GetSize(),
                    [&](const void* bytes, unsigned count) { archive.Write(bytes, count); });
    } else {
        load(array, archive, [&](long long first, long long last) {
            transferRaw(array.GetData() + first, last - first,
                        [&](void* bytes, unsigned count) { archive.EnsureRead(bytes, count); });
        });
    }
}

} // namespace

void CByteArray_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    serializeRaw(*this, archive);
}

void CWordArray_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    serializeRaw(*this, archive);
}

void CDWordArray_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    serializeRaw(*this, archive);
}

void CObArray_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    if (archive.IsStoring()) {
        archive.WriteCount(static_cast<unsigned long long>(size));
        std::for_each_n(data, size, [&](const CObject_X* object) { archive << object; });
        return;
    }
    // Nothing of an object is in the stream that would bear the count out.
    const auto count = archive.ReadCount();
    const auto believed = std::max<unsigned long long>(xe::bytesLeft(archive), xe::believedWithoutData);
    startAnew(*this, static_cast<long long>(std::min(count, believed)));
}

void CStringArray_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    if (archive.IsStoring()) {
        archive.WriteCount(static_cast<unsigned long long>(size));
        std::for_each_n(data, size, [&](const CString_X& text) { archive << text; });
        return;
    }
    load(*this, archive, [&](long long first, long long last) {
        for (; first < last && xe::hasMore(archive); ++first)
            archive >> data[first];
    });
}
