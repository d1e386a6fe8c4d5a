import QtQuick
import Velko

/// A dot beside a word, never alone. `kind`: "ok", "warn", "danger", "info" or anything else for a quiet one.
Rectangle {
    property string kind

    width: 9
    height: 9
    radius: 4.5
    color: kind === "ok" ? Theme.ok : kind === "warn" ? Theme.warn : kind === "danger" ? Theme.danger
        : kind === "info" ? Theme.info : Theme.t3
}
