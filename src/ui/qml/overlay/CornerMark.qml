import Velko

/// A rounded corner: this is the screen that is being set up. Drawn for the upper left one.
Icon {
    name: "corner"
    size: Theme.px(56)
    color: "#47F4F1EB"
}
