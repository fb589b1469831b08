#pragma once

#include <qglobal.h>

/// Does what the program's arguments say and prints what there is to tell. KEY is below HKEY_CURRENT_USER.
///
///     create KEY            dword KEY NAME NUMBER      query KEY NAME   prints queried()
///     flush                 qword KEY NAME NUMBER      entries KEY      prints entriesOf()
///                           text KEY NAME TEXT         texts KEY        prints textsOf()
///                           delete KEY NAME
///
/// Words of one command are divided by "|", and each command is one argument. Returns 2 for an unknown one.
extern "C" Q_DECL_EXPORT int runCommands(int argc, char** argv);
