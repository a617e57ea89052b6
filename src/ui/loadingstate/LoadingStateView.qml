// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick

// Shows the view that belongs to the state of a load. A change of the state animates from one view
// to the other; changes within `loaded` are handled by the content itself. The shown view takes the
// width of this item, and provides its implicit height.
//
//     LoadingStateView {
//         loadingState: store.state
//         content: TicketRows { tickets: store.tickets }
//         loading: ProgressIndicator { }
//         transitions: ({"loaded": {scale: 0.9}})
//     }
Item {
    id: view

    /// "idle", "loading", "loadingWithPreview", "loaded", "empty" or "error"
    required property string loadingState
    property Component content
    property Component loading
    /// If not set, `loading` is shown.
    property Component loadingWithPreview
    property Component empty
    property Component error
    /// How views appear and disappear, by the name of the state. All of them fade. `scale` is the
    /// scale that a view grows from, `removalScale` is the scale that it shrinks to, and a view
    /// that is `immediate` appears at once.
    property var transitions: ({})

    implicitHeight: current ? current.implicitHeight : 0

    property LoadingStatePage current
    property string shownState: ""

    function componentFor(state: string): Component {
        switch (state) {
        case "loading": return loading
        case "loadingWithPreview":
            if (loadingWithPreview)
                return loadingWithPreview
            return loading
        case "loaded": return content
        case "empty": return empty
        case "error": return error
        default: return null
        }
    }

    function updateView() {
        if (loadingState === shownState)
            return
        shownState = loadingState
        if (current)
            current.leave()
        const component = componentFor(loadingState)
        const transition = transitions[loadingState] ?? ({})
        current = component ? page.createObject(view, {
            sourceComponent: component,
            z: loadingState === "loaded" ? 2 : 1,
            initialScale: transition.scale ?? 1,
            removalScale: transition.removalScale ?? 1,
            isImmediate: transition.immediate ?? false
        }) : null
    }

    onLoadingStateChanged: updateView()
    Component.onCompleted: updateView()

    Component {
        id: page

        LoadingStatePage {
            width: view.width
            height: Math.max(implicitHeight, view.height)
        }
    }
}
