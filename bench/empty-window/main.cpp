// The peer of the start-up benchmark: the least that shows a Qt Quick window of the same size and renderer.
#include <QGuiApplication>
#include <QQuickView>
#include <cstdio>

int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    QQuickView view(QUrl(QStringLiteral("qrc:/Empty.qml")));
    QObject::connect(&view, &QQuickWindow::frameSwapped, &application, [] {
        std::puts("first frame");
        std::fflush(stdout);
        QGuiApplication::quit();
    });
    view.resize(1440, 900);
    view.show();
    return QGuiApplication::exec();
}
