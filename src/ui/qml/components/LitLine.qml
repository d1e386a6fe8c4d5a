import QtQuick
import Velko

/// Says where you are: under the selected tab, under the focused cover.
Rectangle {
    height: 3
    radius: 2
    gradient: Gradient {
        orientation: Gradient.Horizontal
        GradientStop { position: 0; color: Qt.alpha(Theme.accent, 0) }
        GradientStop { position: 0.22; color: Theme.accent }
        GradientStop { position: 0.78; color: Theme.accent }
        GradientStop { position: 1; color: Qt.alpha(Theme.accent, 0) }
    }
}
