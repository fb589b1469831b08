// The names from a shared library, which is linked with -z initfirst.
#include <QCoreApplication>

static const bool named = [] {
    QCoreApplication::setOrganizationName(QStringLiteral("Acme"));
    QCoreApplication::setApplicationName(QStringLiteral("Draw"));
    return true;
}();
