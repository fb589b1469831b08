#include "xeexcept.h"

#include <algorithm>
#include <initializer_list>

namespace {

struct CauseRow
{
    int cause;
    std::initializer_list<int> errors;
};

using Cause = CFileException_X;

// Win32 error numbers.
constexpr CauseRow osErrors[] = {
    {Cause::fileNotFound, {2, 6, 18, 107}},
    {Cause::badPath, {3, 15, 17, 34, 52, 53, 55, 67, 70, 85, 111, 123, 124, 125, 144, 154, 161, 206, 208, 267}},
    {Cause::tooManyOpenFiles, {4, 36, 68, 113}},
    {Cause::accessDenied, {5, 12, 19, 29, 54, 58, 64, 65, 71, 80, 82, 86, 170, 183, 999}},
    {Cause::invalidFile, {11, 26, 60, 66, 114, 182, 191, 193}},
    {Cause::removeCurrentDir, {16, 145}},
    {Cause::directoryFull, {62}},
    {Cause::badSeek, {24, 25, 27, 30, 131, 132}},
    {Cause::hardIO, {20, 21, 22, 23, 57, 59, 88, 117, 995, 996, 997}},
    {Cause::sharingViolation, {32}},
    {Cause::lockViolation, {33, 108, 167}},
    {Cause::diskFull, {39, 112}},
    {Cause::endOfFile, {38}},
    {Cause::none, {0}},
};

// Numbers of the C library. Those that mean something else on Windows keep the cause that they have there.
constexpr CauseRow errnos[] = {
    {Cause::accessDenied, {1, 13}},  {Cause::fileNotFound, {2, 23}},  {Cause::hardIO, {5, 22}},
    {Cause::invalidFile, {9}},       {Cause::tooManyOpenFiles, {24}}, {Cause::diskFull, {28}},
    {Cause::sharingViolation, {36}},
};

template <std::size_t Size>
int causeOf(const CauseRow (&table)[Size], int error)
{
    const auto holdsError = [error](const CauseRow& row) {
        return std::find(row.errors.begin(), row.errors.end(), error) != row.errors.end();
    };
    const auto found = std::find_if(std::begin(table), std::end(table), holdsError);
    return found != std::end(table) ? found->cause : Cause::genericException;
}

} // namespace

int CFileException_X::OsErrorToException(int error) { return causeOf(osErrors, error); }

int CFileException_X::ErrnoToException(int error) { return causeOf(errnos, error); }
