// SPDX-License-Identifier: MIT
import QtQuick

// The one switch from the state of something remote to a view of it. A change of the state's case
// goes over from one view to the other; a change within `loaded` is the content's own business.
// What is shown has the view's width and gives it its height.
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
    /// Without one, `loading` is shown.
    property Component loadingWithPreview
    property Component empty
    property Component error
    /// How the views come and go, by the name of the state. They fade; those with a `scale` grow from
    /// it, those with a `removalScale` shrink to it, and those that are `immediate` come at once.
    property var transitions: ({})

    readonly property var components: ({
        "idle": null,
        "loading": loading,
        "loadingWithPreview": loadingWithPreview ?? loading,
        "loaded": content,
        "empty": empty,
        "error": error
    })

    implicitHeight: current ? current.implicitHeight : 0

    property LoadingStatePage current
    property string shownState: ""

    function go() {
        if (loadingState === shownState)
            return
        shownState = loadingState
        if (current)
            current.leave()
        const component = components[loadingState]
        current = component ? page.createObject(view, {
            sourceComponent: component,
            z: loadingState === "loaded" ? 2 : 1,
            transition: transitions[loadingState] ?? ({})
        }) : null
    }

    onLoadingStateChanged: go()
    Component.onCompleted: go()

    Component {
        id: page

        LoadingStatePage {
            width: view.width
            height: Math.max(implicitHeight, view.height)
        }
    }
}
