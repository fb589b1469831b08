#include "xeafxarray.h"

#include "data/archivelimits.h"
#include "xeafxarc.h"

#include <algorithm>

namespace {

constexpr unsigned long long believedWithoutData = 0x100000;

// Sets the array to the number of elements that the archive announces, as far as that can be true, and renews them all.
// Returns how many of them the rest of the archive can hold, the last perhaps in part.
template <class Array>
long long readSize(Array& array, CArchive_X& archive, unsigned long long leastBytes)
{
    const unsigned long long count = archive.ReadCount();
    const unsigned long long held = (xe::bytesLeft(archive) + leastBytes - 1) / leastBytes;
    array.SetSize(static_cast<long long>(std::min(count, std::max(held, believedWithoutData))), -1);
    std::fill_n(array.GetData(), array.GetSize(), std::decay_t<decltype(array[0])>());
    return static_cast<long long>(std::min(count, held));
}

// Hands the elements over in pieces whose bytes a signed 32-bit number can count.
template <class Array, class Transfer>
void transferRaw(Array& array, Transfer transfer)
{
    auto* next = array.GetData();
    constexpr long long largestPiece = 0x7FFFFFFF / sizeof *next;
    for (long long left = array.GetSize(); left > 0;) {
        const long long piece = std::min(left, largestPiece);
        transfer(next, static_cast<unsigned>(piece) * static_cast<unsigned>(sizeof *next));
        next += piece;
        left -= piece;
    }
}

template <class Array>
void serializeRaw(Array& array, CArchive_X& archive)
{
    if (archive.IsStoring()) {
        archive.WriteCount(static_cast<unsigned long long>(array.GetSize()));
        transferRaw(array, [&](const void* bytes, unsigned count) { archive.Write(bytes, count); });
    } else {
        readSize(array, archive, sizeof array[0]);
        transferRaw(array, [&](void* bytes, unsigned count) { archive.EnsureRead(bytes, count); });
    }
}

template <class Array>
void serializeEach(Array& array, CArchive_X& archive)
{
    if (archive.IsStoring()) {
        archive.WriteCount(static_cast<unsigned long long>(array.GetSize()));
        std::for_each_n(array.GetData(), array.GetSize(), [&](auto& element) { archive << element; });
    } else {
        const long long held = readSize(array, archive, 1);
        std::for_each_n(array.GetData(), held, [&](auto& element) { archive >> element; });
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
    serializeEach(*this, archive);
}

void CStringArray_X::Serialize(CArchive_X& archive)
{
    CObject_X::Serialize(archive);
    serializeEach(*this, archive);
}
