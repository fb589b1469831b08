// The names of the registry's file. They must be there before the library is loaded: nothing else may be done here.
#include <QCoreApplication>

static void setNames(int, char**, char**)
{
    QCoreApplication::setOrganizationName(QStringLiteral("XeMFCEmu"));
    QCoreApplication::setApplicationName(QStringLiteral("partsbook"));
}

[[gnu::section(".preinit_array"), gnu::used]] static void (*const beforeAllLibraries)(int, char**, char**) = setNames;
