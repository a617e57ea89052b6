// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "testing/ui/scene.h"
#include "ui/composer/composerdata.h"
#include "ui/home/screendata.h"

#include <span>

namespace tolvane::test {

/// How the messenger is shown. Appearance and size of texts are the application's: what applies
/// them is apply(), and a look that is made by default puts them back.
struct Look
{
    QString name = QStringLiteral("plain");
    QSize size{390, 844};
    QString language = QStringLiteral("en");
    bool isDark = false;
    /// How much larger than usual texts are.
    double textScale = 1;

    void apply() const;
};

/// A host with a backend that has something of everything, and the messenger as it shows it.
class Screens : public Scene
{
public:
    /// One of the messenger's screens, in one of its states.
    struct Screen
    {
        const char *name;
        /// Goes there from the closed messenger.
        void (Screens::*open)();
    };

    static std::span<const Screen> all();
    /// A row for each screen in a table of a test.
    static void addRows();

    explicit Screens(const Look &look);

    /// Shows the screen, at rest. Once only.
    void show(const Screen &screen);
    void show(const QString &name);

    /// What of all that is shown is no text of the library: what people have written, and names.
    static QStringList data();

    /// Of the ones that are visible, the last of a type; null without one.
    QQuickItem *last(const char *type) const;

private:
    UrlResponse respond(const UrlRequest &request);
    ScreenData &screen() const;
    ComposerData &composer() const;
    bool isAtRest() const;
    void rest();
    void open();
    void openTicket();
    void openPicture();

    void homeSkeleton();
    void homeLoading();
    void homeList();
    void homeCurrent();
    void homeCollapsed();
    void homeEmpty();
    void homeError();
    void conversationLoading();
    void conversation();
    void conversationBeginning();
    void conversationTyping();
    void conversationClosed();
    void conversationError();
    void conversationNew();
    void conversationHovered();
    void composerText();
    void composerAttachments();
    void composerSending();
    void viewerLoading();
    void viewer();
    void viewerMenu();
    void viewerNotice();

    TicketDto m_ticket;
    bool m_hasPictures = true;
};

} // namespace tolvane::test
