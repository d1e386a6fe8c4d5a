import QtQuick

Rectangle {
    width: 1280
    height: 800
    color: "#0C0E14"
}
