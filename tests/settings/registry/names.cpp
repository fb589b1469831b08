// What docs/porting.md tells a program to do about its names.
#include <QCoreApplication>

static void setNames(int, char**, char**)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Acme"));
    QCoreApplication::setApplicationName(QStringLiteral("Draw"));
}

[[gnu::section(".preinit_array"), gnu::used]] static void (*const beforeAllLibraries)(int, char**, char**) = setNames;
