// SPDX-License-Identifier: MIT
#pragma once

#include "io/linesource.h"

#include <QtCore/QString>

#include <functional>
#include <memory>

namespace tolvane::console {

/// Reads commands and prints output.
///
/// At a terminal there is a prompt with line editing and history; output that arrives while the
/// user types is printed above it. Commands from a file or a pipe are echoed instead, so that the
/// output reads like a session.
class Terminal
{
public:
    Terminal(std::function<void(const QString &)> onLine, std::function<void()> onEnd);
    ~Terminal();
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

    void print(const QString &text);

    /// Prints a command that is about to run, unless the user has typed it at this terminal.
    void echo(const QString &command);

    /// Returns the text with an ANSI style, or unchanged when the output does not support it.
    QString styled(const char *style, const QString &text) const;

    bool isInteractive() const { return m_editing; }

private:
    void startEditing();
    void readKey();
    /// Prints `above` in place of the line being edited and redraws that line below it.
    void redraw(const QByteArray &above);

    std::function<void(const QString &)> m_onLine;
    std::function<void()> m_onEnd;
    bool m_editing = false;
    bool m_colors = false;
    std::unique_ptr<QSocketNotifier> m_keys;
    std::unique_ptr<LineSource> m_lines;
};

} // namespace tolvane::console
