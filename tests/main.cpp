#ifdef QT_GUI_LIB
#include <QGuiApplication>
using Application = QGuiApplication; // pictures need fonts, windows need a platform
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// Time zone, locale and home folder are the same on every machine and no test sees the real ones.
int main(int argc, char **argv)
{
    const QTemporaryDir home;
    qputenv("TZ", "Europe/Paris");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("LANG", "C.UTF-8");
    qputenv("HOME", home.path().toUtf8());
    for (const char *variable :
         {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME", "XDG_DATA_DIRS"})
        qunsetenv(variable);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const Application application(argc, argv);
    return RUN_ALL_TESTS();
}
