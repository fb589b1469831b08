// A program that sets its names in main() and loads a plug-in, and with it the library, afterwards.
#include <QCoreApplication>
#include <QLibrary>

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Acme"));
    QCoreApplication::setApplicationName(QStringLiteral("Draw"));
    using Run = int (*)(int, char**);
    const auto run = reinterpret_cast<Run>(QLibrary::resolve(qEnvironmentVariable("PLUGIN"), "runCommands"));
    return run ? run(argc, argv) : 2;
}
