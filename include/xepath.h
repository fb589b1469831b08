/// @file xepath.h
/// Path functions: components, extensions, arguments and quotes of a path text, joining and comparing of paths, and
/// questions about a path.
///
/// A path may be one of Linux or one that a host program has carried over from Windows, and the functions do not agree
/// on what separates its components: each group says whether it goes by "/", by "\" or by both.
///
/// Texts are terminated texts of 32-bit elements, lengths and places count elements. A function that changes a text
/// does it in place, one that finds something returns a pointer into its argument. A buffer that a function fills, or
/// whose text it makes longer, has XE_MAX_PATH elements; a result that does not fit there makes the function fail.
/// A null text gives 0, null or nothing, unless a function says otherwise. A question is answered by 1 or 0.
#pragma once

#include "xedef.h"

/// The elements of a path buffer, terminator included, where Windows has MAX_PATH.
inline constexpr int XE_MAX_PATH = 2048;

// ------------------------------------------------------------------------------- components: both "/" and "\" separate

/// Cuts the text at its *first* separator behind the first element, not at the last as published: "a/b/c" becomes "a"
/// and "/a/b" becomes "/a". Without such a separator nothing changes. 1 if the text changed.
XE_EXPORT BOOL PathRemoveFileSpec_X(wchar_t* path);

/// Cuts the text behind the same separator: "a/b/c" becomes "a/", "/a/b" becomes "/a/". Without one nothing is left, as
/// there is no root then. 1 if the text changed.
XE_EXPORT BOOL PathStripToRoot_X(wchar_t* path);

/// Moves what follows the last separator to the start of the text.
XE_EXPORT void PathStripPath_X(wchar_t* path);

/// What follows the last separator; the whole text without one.
XE_EXPORT wchar_t* PathFindFileName_X(const wchar_t* path);

/// What follows the *first* separator; the whole text without one.
XE_EXPORT wchar_t* PathFindNextComponent_X(const wchar_t* path);

/// What follows the first separator behind the first element; in a UNC path (PathIsUNC_X), what follows the "\" behind
/// the share's name. Null if there is no such separator.
XE_EXPORT wchar_t* PathSkipRoot_X(const wchar_t* path);

/// Whether the text starts with two separators.
XE_EXPORT BOOL PathIsNetworkPath_X(const wchar_t* path);

// ------------------------------------------------------------------------------------- separator at the end: "/" alone

/// Makes the text end in "/", whatever the name says, and returns it. Null, with the text as it was, if the result is
/// longer than 2048 elements. A result of exactly 2048 fills its buffer: it has *no terminator*.
XE_EXPORT wchar_t* PathAddBackslash_X(wchar_t* path);

/// If the text ends in "/", writes it back without *any* of its "/" and without a terminator, so that the old tail
/// stays behind the shorter text: "a/b/" becomes "abb/". The published function takes the last separator alone. Returns
/// the text.
XE_EXPORT wchar_t* PathRemoveBackslash_X(wchar_t* path);

// ---------------------------------------------------------------------- kinds, joining, comparing: "\" alone separates

/// Whether the text starts with `\\`.
XE_EXPORT BOOL PathIsUNC_X(const wchar_t* path);

/// Whether there is neither "\" nor ":" in the text, so "a/b" is one.
XE_EXPORT BOOL PathIsFileSpec_X(const wchar_t* path);

/// 0 for a text that starts with "\" or whose second element is ":", otherwise 1, also for null and for "/etc".
XE_EXPORT BOOL PathIsRelative_X(const wchar_t* path);

/// Writes the path without its "." and ".." components to `out`, which may be `path` itself. 1, or 0 for null, which
/// makes ERROR_INVALID_PARAMETER the last error, and for a result that is too long, which leaves `out` empty.
///
/// - The root, an initial "\", "X:" or "X:\", is never removed; nor is `\\server\share`. "X:" alone becomes "X:\".
/// - ".\" is dropped at the start and behind any "\" or ":".
/// - ".." removes the component before it, also one that is itself "..". At the start of the text and behind a ":" it
///   is text like any other.
/// - "." and ".." at the end count as well, and take the "\" before them along, unless that belongs to the root.
/// - Only "\" separates: `/a/./b`, "a/.." and `..x` stay as they are.
/// - An empty text, and one of which nothing is left, gives "\".
XE_EXPORT BOOL PathCanonicalize_X(wchar_t* out, const wchar_t* path);

/// Writes the canonical form (PathCanonicalize_X) of a file in a directory to `out`, which may be either of them, and
/// returns it. A file that is not relative stands for itself, but one with a single leading "\" goes to the root
/// (PathStripToRoot_X) of the directory. The two are joined by "/" unless the directory ends in it, so that a ".." at
/// the start of the file is *not* taken away: `c:\x` and `..\y` give `c:\x/..\y`. Without one of the two the other
/// stands alone; a path of more than 2047 elements is cut before that.
///
/// Null for a null `out`; null, and `out` empty, without both or if the sum is longer than 2047 elements.
XE_EXPORT wchar_t* PathCombine_X(wchar_t* out, const wchar_t* directory, const wchar_t* file);

/// PathCombine_X of both into the first. A single leading "\" of the second is dropped before. 1, or 0 on failure.
XE_EXPORT BOOL PathAppend_X(wchar_t* path, const wchar_t* more);

/// The length of the longest start of the first path that is also one of the second and ends at a "\" or at the end in
/// both, by `towupper` of the C locale. It goes to `out`, which may be null. A length of exactly 2 is taken for a
/// drive and becomes 3. 0, and `out` empty, for null, for one UNC path and one other, and if `out` cannot hold it.
XE_EXPORT int PathCommonPrefix_X(const wchar_t* first, const wchar_t* second, wchar_t* out);

/// Whether the common prefix of both is the whole of `prefix`. So `c:` is no prefix of `c:\a` but `c:\` is.
XE_EXPORT BOOL PathIsPrefix_X(const wchar_t* prefix, const wchar_t* path);

/// Whether the common prefix of both holds the root of the first path (PathSkipRoot_X; its separator may be missing). 0
/// if there is none.
XE_EXPORT BOOL PathIsSameRoot_X(const wchar_t* first, const wchar_t* second);

// ------------------------------------------------------------------------------------------- arguments, blanks, quotes

/// What follows the first blank outside double quotes; the end of the text without one.
XE_EXPORT wchar_t* PathGetArgs_X(const wchar_t* path);

/// Cuts the text at that blank.
XE_EXPORT void PathRemoveArgs_X(wchar_t* path);

/// Removes the blanks at both ends.
XE_EXPORT void PathRemoveBlanks_X(wchar_t* path);

/// Puts a text that has a blank in double quotes. 1 if it did; 0 without a blank and if the result is too long.
XE_EXPORT BOOL PathQuoteSpaces_X(wchar_t* path);

/// Removes a double quote at either end; 1 if both were there.
XE_EXPORT BOOL PathUnquoteSpaces_X(wchar_t* path);

/// 0, always: unlike the published function it reads no index and cuts nothing.
XE_EXPORT int PathParseIconLocation_X(wchar_t* path);

// ------------------------------------------------------------------------ extensions: both "/" and "\" end a component

/// The last "." behind the last blank, "/" or "\"; the end of the text without one.
XE_EXPORT wchar_t* PathFindExtension_X(const wchar_t* path);

/// Cuts the text before its extension.
XE_EXPORT void PathRemoveExtension_X(wchar_t* path);

/// Appends an extension, dot included; there is no default one. 0, and nothing is changed, if the text has one already
/// (a "." at its end will do) or if the result is too long.
XE_EXPORT BOOL PathAddExtension_X(wchar_t* path, const wchar_t* extension);

/// Puts an extension in place of the old one, if any. 0, and nothing is changed, if the result is too long.
XE_EXPORT BOOL PathRenameExtension_X(wchar_t* path, const wchar_t* extension);

/// Removes brackets with digits between name and extension: "name[1].txt" and "name[].txt" become "name.txt".
XE_EXPORT void PathUndecorate_X(wchar_t* path);

/// Splits a path at its last "/", which goes to `directory`, and what follows at its last ".", which goes to
/// `extension`. "\" separates nothing. `drive` becomes empty, and so does everything for a null path and for one of
/// more than 2047 elements. Each buffer holds what it gets and a terminator; a null one is skipped.
XE_EXPORT void _tsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* directory, wchar_t* name, wchar_t* extension);

// ------------------------------------------------------------------------------------------------- questions, spelling

/// Whether there is such a file or folder. Makes ENOENT the last error in either case.
XE_EXPORT BOOL PathFileExists_X(const wchar_t* path);

/// Whether the path names a folder. It goes to the system in the encoding of the C locale (WideCharToMultiByte_X): a
/// path that this cannot hold names none.
XE_EXPORT BOOL PathIsDirectory(const wchar_t* path);

/// Whether there is nothing but hidden entries in the folder, so 1 also for one that is not there. An empty text stands
/// for the current folder.
XE_EXPORT BOOL PathIsDirectoryEmpty_X(const wchar_t* path);

/// Whether the path names the top folder of a file system, which is told by its inode number 2. Not every file system
/// counts like that, so it may be 0 for "/".
XE_EXPORT BOOL PathIsRoot_X(const wchar_t* path);

/// Whether QUrl takes the text for valid, as it does almost any text that is not empty.
XE_EXPORT BOOL PathIsURL_X(const wchar_t* path);

/// Whether there is "://" in the text and no "/" behind it. Unlike the published function it does not look for
/// `\\server`.
XE_EXPORT BOOL PathIsUNCServer_X(const wchar_t* path);

/// Whether there is "://" in the text and a "/" behind its ":", which is to say "://" alone, so that it is 1 wherever
/// PathIsUNCServer_X is. Unlike the published function it does not look for `\\server\share`.
XE_EXPORT BOOL PathIsUNCServerShare_X(const wchar_t* path);

/// Whether a name goes beyond eight elements, a "." and three more, or has a blank.
XE_EXPORT BOOL PathIsLFNFileSpec_X(const wchar_t* name);

/// Turns the whole text to lower case, whatever case it has, by Unicode and element by element: the length stays. 1.
XE_EXPORT BOOL PathMakePretty_X(wchar_t* path);

inline constexpr UINT GCT_INVALID = 0;
inline constexpr UINT GCT_LFNCHAR = 1;
inline constexpr UINT GCT_SHORTCHAR = 2;
inline constexpr UINT GCT_WILD = 4;
inline constexpr UINT GCT_SEPARATOR = 8;

/// What a character may be in a path; a bit set of the above. "/" is invalid.
XE_EXPORT UINT PathGetCharType_X(wchar_t character);
