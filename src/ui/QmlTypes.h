#pragma once

#include "app/AppState.h"
#include "app/Translator.h"
#include "emulators/finding/InstalledEmulators.h"
#include "library/LibraryStore.h"
#include "platform/Preferences.h"
#include "play/ControllerInput.h"

#include <QQmlEngine>
#include <QVariant>
#include <qqmlregistration.h>

/// The stores under the names by which QML knows them. They know nothing of QML themselves.
struct AppStateForQml {
    Q_GADGET
    QML_FOREIGN(AppState)
    QML_NAMED_ELEMENT(AppState)
    QML_UNCREATABLE("created once, at start-up")
};

struct LibraryStoreForQml {
    Q_GADGET
    QML_FOREIGN(LibraryStore)
    QML_NAMED_ELEMENT(LibraryStore)
    QML_UNCREATABLE("created once, at start-up")
};

struct InstalledEmulatorsForQml {
    Q_GADGET
    QML_FOREIGN(InstalledEmulators)
    QML_NAMED_ELEMENT(InstalledEmulators)
    QML_UNCREATABLE("created once, at start-up")
};

struct PreferencesForQml {
    Q_GADGET
    QML_FOREIGN(Preferences)
    QML_NAMED_ELEMENT(Preferences)
    QML_UNCREATABLE("created once, at start-up")
};

struct ControllerInputForQml {
    Q_GADGET
    QML_FOREIGN(ControllerInput)
    QML_NAMED_ELEMENT(ControllerInput)
    QML_UNCREATABLE("created once, at start-up")
};

/// `Tr.translate("…")`: the engine carries the translator that it hands out, so two engines may speak two languages.
struct TranslatorForQml {
    Q_GADGET
    QML_FOREIGN(Translator)
    QML_NAMED_ELEMENT(Tr)
    QML_SINGLETON
public:
    static constexpr const char *property = "velkoTranslator";

    static Translator *create(QQmlEngine *engine, QJSEngine *)
    {
        auto *translator = engine->property(property).value<Translator *>();
        Q_ASSERT(translator);
        QJSEngine::setObjectOwnership(translator, QJSEngine::CppOwnership);
        return translator;
    }
};
