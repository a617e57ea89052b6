// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "testing/fastanimations.h"
#include "testing/ui/messengerfixture.h"
#include "ui/composer/composerdata.h"
#include "ui/home/screendata.h"

#include <span>

namespace tolvane::test {

enum class Form { full, panel, embedded };

/// How the messenger is shown. The palette and the font belong to the application: apply() sets
/// them, and Appearance().apply() resets them.
struct Appearance
{
    QString name = QStringLiteral("plain");
    QSize size{390, 844};
    QString language = QStringLiteral("en");
    bool isDark = false;
    /// A factor for the size of texts.
    double fontScale = 1;
    Form form = Form::full;

    void apply() const;
};

/// A host whose backend has samples of everything, and the messenger in any of its screens.
class Screens : public MessengerFixture
{
public:
    /// One of the messenger's screens, in one of its states.
    struct Screen
    {
        const char *name;
        /// Goes to the screen; the messenger is closed before.
        void (*open)(Screens &screens);
    };

    static std::span<const Screen> all();
    /// Adds a data row for each screen.
    static void addRows();

    explicit Screens(const Appearance &appearance);

    /// Shows the screen and waits until animations have ended. To be called once only.
    void show(const Screen &screen);
    void show(const QString &name);

    /// Renders frames, in which changed sizes of texts and windows reach all items.
    void waitForFrames(int count);

    /// Shown texts that are not the library's: messages, names and types of senders.
    static QStringList contentTexts();

    /// The conversation of each row of the list. Messages that the customer sends are appended.
    TicketDto ticket;

private:
    UrlResponse respond(const UrlRequest &request);
    ScreenData &screen() const;
    ComposerData &composer() const;
    bool hasFinishedAnimations() const;
    void waitForAnimations();
    void open();
    void openTicket();
    void openPicture();

    void attachPictures();
    TicketPreviewDto preview(int message) const;
    void goTo(const TolvaneDestination &page);

    /// Not with OpenGL, whose render loops have drivers of their own.
    std::optional<FastAnimations> m_fastAnimations;
    bool m_hasPictures = true;
    bool m_hasSettings = true;
};

} // namespace tolvane::test
