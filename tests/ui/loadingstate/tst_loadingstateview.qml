// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tolvane.Private

TestCase {
    id: testCase

    name: "LoadingStateView"
    when: windowShown
    width: 100
    height: 100

    component Named: Item {
        required property string text
    }

    Component {
        id: component

        LoadingStateView {
            loadingState: "idle"
            content: Named { text: "content" }
            loading: Named { text: "loading" }
            empty: Named { text: "empty" }
            error: Named { text: "error" }
        }
    }

    function pages(view) {
        return Array.from({length: view.children.length}, (_, at) => view.children[at].item.text)
    }

    function test_states_data() {
        return [{tag: "idle", shown: []},
                {tag: "loading", shown: ["loading"]},
                {tag: "loadingWithPreview", shown: ["loading"]},
                {tag: "loaded", shown: ["content"]},
                {tag: "empty", shown: ["empty"]},
                {tag: "error", shown: ["error"]}]
    }
    function test_states(data) {
        const view = createTemporaryObject(component, testCase, {loadingState: "error"})
        view.loadingState = data.tag
        // The previous view fades out beside its replacement.
        compare(pages(view).sort(), ["error"].concat(data.tag === "error" ? [] : data.shown).sort())
        tryVerify(() => view.children.length === data.shown.length)
        compare(pages(view), data.shown)
        if (view.current)
            tryCompare(view.current, "opacity", 1)
    }

    function test_focusRingsAreSeenOnAnyGround() {
        for (const [ground, tint, shown] of [["#63b5ad", "#0b3340", "#0b3340"],
                                             ["#1f5c4d", "#e07a3f", "#ffffff"],
                                             ["#f5f4f0", "#eeeeee", "#000000"],
                                             ["#000000", "#4dffffff", "#ffffff"]])
            verify(Qt.colorEqual(Theme.visibleOn(ground, tint), shown), ground)
    }
}
