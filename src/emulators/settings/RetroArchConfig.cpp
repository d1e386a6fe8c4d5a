#include "emulators/settings/RetroArchConfig.h"

#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

QByteArray retroArchConfig(const GameSettings &settings, quint16 port)
{
    QByteArray text = "network_cmd_enable = \"true\"\n"
                      "network_cmd_port = \""
        + QByteArray::number(port)
        + "\"\n"
          "pause_nonactive = \"false\"\n"
          "config_save_on_exit = \"false\"\n"
          "quit_press_twice = \"false\"\n"
          "savestate_auto_index = \"false\"\n"
          // The slot that the command line can load again.
          "state_slot = \"1\"\n";
    if (settings.fullScreen == false) text += "video_fullscreen = \"false\"\n";
    if (settings.showFPS) text += "fps_show = \"true\"\n";
    return text;
}

int retroArchEntrySlot(const QString &statePath)
{
    static const QRegularExpression slot(u"\\.state(\\d{1,3})$"_s);
    return std::max(1, slot.match(statePath).captured(1).toInt());
}

QString retroArchEntryState(const QString &statePath)
{
    static const QRegularExpression ending(u"\\.state\\d*$"_s);
    QString base = statePath;
    base.remove(ending);
    return base + u".state"_s + QString::number(retroArchEntrySlot(statePath)) + u".entry"_s;
}
