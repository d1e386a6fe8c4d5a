#include "platform/linux/LinuxServices.h"

#include <QCoreApplication>
#include <cstdio>

/// starter LOG FOLDER COMMAND...: starts the command, prints its process identifier, and stays until it is killed.
/// With FREEZE in the environment it freezes what it started first.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 4) return 2;
    const auto workspace = makeWorkspace(linuxPlaces(arguments[2], QProcessEnvironment::systemEnvironment()));
    const auto pid = workspace->start(
        {.command = arguments.sliced(3), .environment = {}, .workingFolder = arguments[2], .logFile = arguments[1]});
    if (!pid) return 1;
    const auto control = makeProcessControl();
    if (qEnvironmentVariableIsSet("FREEZE") && !control->freeze(pid.value())) return 1;
    std::printf("%lld\n", pid.value());
    std::fflush(stdout);
    return QCoreApplication::exec();
}
