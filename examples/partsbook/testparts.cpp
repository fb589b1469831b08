#include "testparts.h"

#include "text.h"

#include <iterator>

namespace {

constexpr const wchar_t* kinds[] = {
    L"Fastener 紧固件",  L"Bearing 轴承",    L"Seal 密封件",     L"Drive 传动",    L"Spring 弹簧",
    L"Pneumatic 气动件", L"Electrical 电气", L"Machined 加工件", L"Supplies 耗材",
};
constexpr const wchar_t* suppliers[] = {
    L"Huafeng 华丰", L"Wafangdian 瓦轴", L"Dongtai 东泰密封", L"Kessler", L"Nordlicht", L"Sunrise 日升", L"Acme",
};
constexpr int usedOfTen = 9;

// What follows the one before in a list looks like chance when the list is gone through in steps that have no common
// divisor with its size.
template <class Value, std::size_t size>
Value at(const Value (&list)[size], int place)
{
    return list[static_cast<std::size_t>(place) % size];
}

Part testPart(int place)
{
    Part part;
    part.number.Format(L"T-%06d", place + 1);
    part.kind = at(kinds, place * 5);
    part.supplier = at(suppliers, place * 3);
    part.name.Format(L"Test part %d 试件", place % 977);
    part.source = place % 3;
    part.stock = place * 7919LL % 1000;
    part.minimum = place * 31LL % 200;
    part.price = static_cast<double>(place * 6151LL % 20000) / 100;
    part.inUse = place % 10 < usedOfTen ? Part::InUse : Part::OutOfUse;
    return part;
}

} // namespace

std::vector<Part> testParts(int count)
{
    std::vector<Part> parts;
    parts.reserve(static_cast<std::size_t>(count));
    for (int place = 0; place < count; ++place)
        parts.push_back(testPart(place));
    return parts;
}
