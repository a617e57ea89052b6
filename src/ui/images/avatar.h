// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The kinds of icon for the other side of a conversation.
class TOLVANE_VIEWS_AUTOTEST_EXPORT Avatar : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Avatar has constants only.")

public:
    enum Kind {
        None,
        /// A person without a picture.
        Person,
        /// The picture of a person.
        Picture,
        AI,
        /// The conversation is closed.
        Closed,
    };
    Q_ENUM(Kind)
};

} // namespace tolvane
