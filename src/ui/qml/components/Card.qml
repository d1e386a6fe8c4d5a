import QtQuick
import Velko

/// A flat, lighter surface.
Rectangle {
    radius: 20
    color: Theme.raised
}
