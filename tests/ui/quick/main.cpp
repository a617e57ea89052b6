// SPDX-License-Identifier: MIT
// Runs the tests written in QML, with pictures and records that QML cannot make.
#include "support/wire.h"
#include "ui/support/samples.h"

#include <QtQml/QQmlEngine>
#include <QtQuickTest/quicktest.h>

extern void qml_register_types_Tolvane();

namespace tolvane::test {

class Samples final : public QObject
{
    Q_OBJECT

public:
    /// Four colours, one a quarter.
    Q_INVOKABLE QImage quarters(int width, int height) const
    {
        QImage image(width, height, QImage::Format_RGB32);
        const QRgb colors[] = {qRgb(255, 0, 0), qRgb(0, 255, 0), qRgb(0, 0, 255),
                               qRgb(255, 255, 0)};
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x)
                image.setPixel(x, y, colors[(y * 2 / height) * 2 + x * 2 / width]);
        }
        return image;
    }

    /// Black and white by turns, each pixel.
    Q_INVOKABLE QImage checkerboard(int side) const
    {
        QImage image(side, side, QImage::Format_RGB32);
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x)
                image.setPixel(x, y, (x + y) % 2 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
        }
        return image;
    }

    Q_INVOKABLE QVariant preview(const QString &id, const QString &lastText) const
    {
        TicketPreviewDto preview = makePreview(id);
        preview.lastMessage.content = lastText;
        return QVariant::fromValue(preview);
    }

    /// What analytics were told since the last call.
    Q_INVOKABLE QStringList actions()
    {
        QStringList actions;
        for (const TolvaneAnalyticsEvent &event : std::exchange(fixture.delegate->events, {})) {
            const QVariantMap properties = event.properties();
            const auto text = [&](const char *key) {
                return properties.value(QLatin1String(key)).toString();
            };
            actions += QStringList({text("action_type"), text("screen_name"), text("ticket_id"),
                                    text("image_url")})
                           .join(QLatin1Char(' '))
                           .trimmed();
        }
        return actions;
    }

private:
    Fixture fixture;
};

class Setup final : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *)
    {
        qml_register_types_Tolvane();
        qmlRegisterSingletonType<Samples>("Samples", 1, 0, "Samples",
                                          [](QQmlEngine *, QJSEngine *) { return new Samples; });
    }
};

} // namespace tolvane::test

using tolvane::test::Setup;
QUICK_TEST_MAIN_WITH_SETUP(tolvane, Setup)
#include "main.moc"
