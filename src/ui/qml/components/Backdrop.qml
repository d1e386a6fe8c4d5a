import QtQuick
import Velko

/// A wide card's ground in a console's colours, while there is no picture of the game itself.
Image {
    property string consoleID
    property color ground: Theme.raised
    property real radius: 28
    property bool fading: false ///< towards its top and bottom
    readonly property color tone: Theme.light ? Qt.lighter(Theme.consoleLabel(consoleID), 1.02) : Theme.consoleTop(consoleID)

    source: width < 8 || height < 8 ? "" : "image://backdrop/" + String(ground).substring(1) + "/" + String(tone).slice(-6) + "/"
        + Math.ceil(width * Screen.devicePixelRatio) + "x" + Math.ceil(height * Screen.devicePixelRatio) + "/"
        + Math.round(radius * Screen.devicePixelRatio) + (fading ? "/fading" : "")
}
