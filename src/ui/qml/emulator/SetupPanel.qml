import QtQuick
import Velko

/// Everything about one emulator that is set up once: the controller's guide and the copy that is used.
Column {
    id: root
    required property EmulatorFacts emulator

    spacing: 20
    GuideCard {
        width: parent.width
        emulator: root.emulator
    }
    CopiesCard {
        visible: root.emulator.installed
        width: parent.width
        emulator: root.emulator
    }
}
