#include "play/states/StateKeySettings.h"

#include "base/IniText.h"

#include <QFile>
#include <QMetaEnum>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

static std::optional<QByteArray> contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return {};
    return file.read(2 * 1024 * 1024);
}

std::optional<KeyStroke> keyOfBinding(const QString &binding)
{
    static const QHash<QString, Qt::KeyboardModifier> modifiers{{u"Shift"_s, Qt::ShiftModifier},
                                                                {u"Control"_s, Qt::ControlModifier},
                                                                {u"Alt"_s, Qt::AltModifier},
                                                                {u"Meta"_s, Qt::MetaModifier}};
    KeyStroke stroke;
    for (const QString &part : binding.split(u'&')) {
        const QString key = part.trimmed();
        if (!key.startsWith("Keyboard/"_L1)) return {};
        const QString name = key.sliced(9);
        if (modifiers.contains(name)) {
            stroke.modifiers |= modifiers.value(name);
            continue;
        }
        bool known = false;
        const int value = QMetaEnum::fromType<Qt::Key>().keyToValue("Key_" + name.toLatin1(), &known);
        if (!known || stroke.key != Qt::Key_unknown) return {};
        stroke.key = Qt::Key(value);
    }
    return stroke.key == Qt::Key_unknown ? std::nullopt : std::optional(stroke);
}

static std::optional<KeyStroke> firstKey(const QByteArray &text, const QString &key)
{
    for (const QString &binding : iniValues(text, u"Hotkeys"_s, key)) {
        if (const auto stroke = keyOfBinding(binding)) return stroke;
    }
    return {};
}

static StateKeySettings hotKeys(const QString &file, const QString &save, const QString &load)
{
    const auto text = contentOf(file);
    if (!text || !text->contains("[Hotkeys]")) return {};
    return {true, firstKey(*text, save), firstKey(*text, load)};
}

/// F1 to F12, numbered from `first` on.
static std::optional<KeyStroke> functionKey(int code, int first)
{
    if (code < first || code > first + 11) return {};
    return KeyStroke{Qt::Key(Qt::Key_F1 + code - first)};
}

/// "1-132:10-4": device and key of each binding; 1 is the keyboard.
static std::optional<KeyStroke> ppssppKey(const QByteArray &text, const QString &name)
{
    static const QRegularExpression keyboard(uR"re((?:^|[,|])\s*1-(\d{1,4})\s*(?=$|[,|]))re"_s);
    const QString bindings = iniValues(text, u"ControlMapping"_s, name).value(0);
    return functionKey(keyboard.match(bindings).captured(1).toInt(), 131);
}

/// "bind3 = 59:btn_quick_save": the key as SDL numbers it.
static std::optional<KeyStroke> flycastKey(const QByteArray &text, const QString &command)
{
    const QRegularExpression binding(uR"re(^bind\d+\s*=\s*(\d{1,4}):)re"_s + command + uR"re(\s*$)re"_s,
                                     QRegularExpression::MultilineOption);
    return functionKey(binding.match(QString::fromUtf8(text)).captured(1).toInt(), 58);
}

StateKeySettings stateKeySettings(const QString &engine, const EmulatorFolders &folders)
{
    if (engine == "duckstation"_L1)
        return hotKeys(settingsFile(engine, folders), u"SaveSelectedSaveState"_s, u"LoadSelectedSaveState"_s);
    if (engine == "pcsx2"_L1)
        return hotKeys(settingsFile(engine, folders), u"SaveStateToSlot"_s, u"LoadStateFromSlot"_s);
    if (engine == "ppsspp"_L1) {
        const QByteArray text = contentOf(folders.config + u"/PSP/SYSTEM/controls.ini"_s).value_or(QByteArray());
        return {true, ppssppKey(text, u"Save State"_s), ppssppKey(text, u"Load State"_s)};
    }
    if (engine == "flycast"_L1) {
        const QByteArray text = contentOf(folders.config + u"/mappings/SDL_Keyboard.cfg"_s).value_or(QByteArray());
        return {true, flycastKey(text, u"btn_quick_save"_s), flycastKey(text, u"btn_jump_state"_s)};
    }
    return {};
}
