// SPDX-License-Identifier: MIT
#include "io/terminal.h"

#include "io/output.h"

#include <cstdlib>
#include <editline/readline.h>
#include <optional>
#include <unistd.h>

namespace tolvane::console {

namespace {

constexpr auto prompt = "› ";

// The line editor's callback has no context argument, hence the globals; there is one terminal. The
// line is kept until the editor returns, because the callback must not redraw the editor.
std::optional<QString> editedLine;
bool inputEnded = false;

void onEditedLine(char *line)
{
    inputEnded = !line;
    if (!line)
        return;
    const std::unique_ptr<char, decltype(&std::free)> owned(line, &std::free);
    if (*line != '\0')
        add_history(line);
    editedLine = QString::fromUtf8(line);
}

} // namespace

Terminal::Terminal(std::function<void(const QString &)> onLine, std::function<void()> onEnd)
    : m_onLine(std::move(onLine))
    , m_onEnd(std::move(onEnd))
    , m_editing(isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0)
    , m_colors(isatty(STDOUT_FILENO) != 0 && !qEnvironmentVariableIsSet("NO_COLOR"))
{
    if (m_editing) {
        startEditing();
        return;
    }
    m_lines = std::make_unique<LineSource>();
    QObject::connect(m_lines.get(), &LineSource::line,
                     [this](const QByteArray &line) { m_onLine(QString::fromUtf8(line)); });
    QObject::connect(m_lines.get(), &LineSource::ended, [this] { m_onEnd(); });
}

Terminal::~Terminal()
{
    if (m_editing)
        rl_callback_handler_remove();
}

void Terminal::startEditing()
{
    using_history();
    rl_callback_handler_install(prompt, onEditedLine);
    m_keys = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(m_keys.get(), &QSocketNotifier::activated, [this] { readKey(); });
}

void Terminal::readKey()
{
    rl_callback_read_char();
    if (inputEnded) {
        m_keys->setEnabled(false);
        m_onEnd();
        return;
    }
    if (!editedLine)
        return;
    // The editor resets its mode after each line: install the handler again.
    rl_callback_handler_install(prompt, onEditedLine);
    redraw({});
    m_onLine(*std::exchange(editedLine, std::nullopt));
}

void Terminal::print(const QString &text)
{
    if (!m_editing) {
        writeOut(text.toUtf8() + '\n');
        return;
    }
    redraw(text.toUtf8() + '\n');
}

void Terminal::redraw(const QByteArray &above)
{
    writeOut("\r\x1b[K" + above);
    rl_forced_update_display();
}

void Terminal::echo(const QString &command)
{
    if (!m_editing)
        print(styled("2", QString::fromUtf8(prompt) + command));
}

QString Terminal::styled(const char *style, const QString &text) const
{
    if (!m_colors)
        return text;
    return QStringLiteral("\x1b[%1m%2\x1b[0m").arg(QLatin1String(style), text);
}

} // namespace tolvane::console
