// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// Lengths and durations that several views share. They are enumerators, which compiled QML
/// contains as numbers: reading one needs no object and no lookup.
class Metrics : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Metrics has constants only.")

public:
    /// In device-independent pixels.
    enum Length {
        /// Between the edges of a view and its content.
        Padding = 16,
        /// As Padding, in views with little room.
        SmallPadding = 8,
        /// As Padding, for the skeletons of the home screen and for wide buttons.
        WidePadding = 20,

        /// Between the lines of a text, and between parts that belong together.
        LineSpacing = 4,
        /// Between the parts of an item, and between rows of different kinds.
        SmallSpacing = 8,
        /// Between the items of a row, and between rows.
        Spacing = 10,
        /// Between messages.
        MessageSpacing = 20,

        /// The radius of rows, buttons and the focus ring.
        ItemRadius = 8,
        PictureRadius = 10,
        SkeletonRadius = 12,
        /// The radius of items above other content: a menu, or the hint while files are dragged.
        PanelRadius = 14,
        BubbleRadius = 16,

        AvatarSize = 32,
        /// The width that rows leave for the avatar.
        AvatarInset = AvatarSize + Spacing,

        ButtonSize = 36,
        IconSize = 18,
        /// The size of the composer's buttons.
        ComposerButtonSize = 40,
        ComposerIconSize = 20,

        /// From the button for a new ticket to the edges of the window.
        FloatingMargin = 6,
        NoticeIconSize = 60,
        /// The same size in a conversation.
        SmallNoticeIconSize = 48,

        /// The header of the home screen, in portrait and in landscape windows.
        HeaderHeight = 240,
        CollapsedHeaderHeight = 80,
        LandscapeHeaderHeight = 160,
        LandscapeCollapsedHeaderHeight = 60,
    };
    Q_ENUM(Length)

    /// In milliseconds.
    enum Duration {
        /// A small change, such as scrolling by one row.
        ShortDuration = 150,
        /// An item fades in or out over the content.
        FadeDuration = 250,
        /// A view replaces another, or a list scrolls to an end.
        TransitionDuration = 300,
        /// A page or an item slides into place.
        SlideDuration = 350,
    };
    Q_ENUM(Duration)
};

} // namespace tolvane
