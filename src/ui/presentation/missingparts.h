// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

class QQmlEngine;

namespace tolvane {

/// The parts of Qt that the messenger does without because this system lacks them, with what is
/// lost thereby; empty on a complete system. Searches folders and loads plugins.
QString missingParts(const QQmlEngine &engine);

} // namespace tolvane
