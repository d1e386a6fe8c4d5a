import QtQuick
import Velko

/// The thin line that covers stand on, fading out at both ends.
Rectangle {
    height: 2
    gradient: Gradient {
        orientation: Gradient.Horizontal
        GradientStop { position: 0; color: Qt.alpha(Theme.line2, 0) }
        GradientStop { position: 0.04; color: Theme.line2 }
        GradientStop { position: 0.96; color: Theme.line2 }
        GradientStop { position: 1; color: Qt.alpha(Theme.line2, 0) }
    }
}
