// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "state/colorscheme.h"

#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtGui/QColor>
#include <QtGui/QPalette>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The factor for text sizes if the application's font has this size: 1 for the sizes that systems
/// use by default, up to 2 if the user or the host has chosen a larger one.
double textScale(int pixelSize);

enum class SystemAppearance { unknown, light, dark };

/// Whether an application with this palette is to look dark. Colours that the host has set itself
/// count more than what the system says.
TOLVANE_VIEWS_AUTOTEST_EXPORT bool isDarkAppearance(const QPalette &palette,
                                                    SystemAppearance system);

/// The colours of the branding, the neutral colours for a light or dark appearance, and the text
/// sizes, defined once. Views read the branding when they are created; existing views are notified
/// of a change of the appearance or of the application's font.
class Theme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(QColor primaryColor READ primaryColor NOTIFY changed)
    Q_PROPERTY(QColor accentColor READ accentColor NOTIFY changed)
    Q_PROPERTY(QColor chatBackgroundColor READ chatBackgroundColor NOTIFY changed)
    Q_PROPERTY(QColor fontBasicColor READ fontBasicColor NOTIFY changed)
    Q_PROPERTY(QColor fontUserBubbleColor READ fontUserBubbleColor NOTIFY changed)
    Q_PROPERTY(QColor fontAgentBubbleColor READ fontAgentBubbleColor NOTIFY changed)
    Q_PROPERTY(QColor bubbleUserColor READ bubbleUserColor NOTIFY changed)
    Q_PROPERTY(QColor bubbleAgentColor READ bubbleAgentColor NOTIFY changed)
    Q_PROPERTY(QColor backgroundColor READ backgroundColor NOTIFY changed)
    Q_PROPERTY(QColor secondaryColor READ secondaryColor NOTIFY changed)
    Q_PROPERTY(QColor redColor READ redColor NOTIFY changed)
    Q_PROPERTY(QColor greenColor READ greenColor NOTIFY changed)
    Q_PROPERTY(QColor grayColor READ grayColor CONSTANT)
    Q_PROPERTY(QColor blueColor READ blueColor NOTIFY changed)
    /// Text sizes in pixels, scaled with the application's font.
    Q_PROPERTY(int caption READ caption NOTIFY changed)
    Q_PROPERTY(int footnote READ footnote NOTIFY changed)
    Q_PROPERTY(int callout READ callout NOTIFY changed)
    Q_PROPERTY(int body READ body NOTIFY changed)
    Q_PROPERTY(int headline READ headline NOTIFY changed)
    Q_PROPERTY(int title3 READ title3 NOTIFY changed)
    Q_PROPERTY(int title2 READ title2 NOTIFY changed)
    Q_PROPERTY(int title READ title NOTIFY changed)
    /// The maximum width of content in large windows: longer lines are hard to read.
    Q_PROPERTY(int columnWidth READ columnWidth CONSTANT)
    /// Whether the branding has a logo for the current appearance, and its URL.
    Q_PROPERTY(bool hasLogo READ hasLogo NOTIFY changed)
    Q_PROPERTY(QUrl logo READ logo NOTIFY changed)

public:
    explicit Theme(QObject *parent = nullptr);

    bool isDark() const;
    QColor primaryColor() const { return branded(&ColorScheme::primaryColor); }
    QColor accentColor() const { return branded(&ColorScheme::accentColor); }
    QColor chatBackgroundColor() const { return branded(&ColorScheme::chatBackgroundColor); }
    QColor fontBasicColor() const { return branded(&ColorScheme::fontBasicColor); }
    QColor fontUserBubbleColor() const { return branded(&ColorScheme::fontUserBubbleColor); }
    QColor fontAgentBubbleColor() const { return branded(&ColorScheme::fontAgentBubbleColor); }
    QColor bubbleUserColor() const { return branded(&ColorScheme::bubbleUserColor); }
    QColor bubbleAgentColor() const { return branded(&ColorScheme::bubbleAgentColor); }
    QColor backgroundColor() const { return byAppearance(0xffffffff, 0xff000000); }
    QColor secondaryColor() const { return byAppearance(0x993c3c43, 0x99ebebf5); }
    QColor redColor() const { return byAppearance(0xffff3b30, 0xffff453a); }
    QColor greenColor() const { return byAppearance(0xff34c759, 0xff30d158); }
    QColor grayColor() const { return QColor::fromRgba(0xff8e8e93); }
    QColor blueColor() const { return byAppearance(0xff007aff, 0xff0a84ff); }
    int caption() const { return scaled(12); }
    int footnote() const { return scaled(14); }
    int callout() const { return scaled(16); }
    int body() const { return scaled(17); }
    int headline() const { return scaled(18); }
    int title3() const { return scaled(20); }
    int title2() const { return scaled(22); }
    int title() const { return scaled(28); }
    int columnWidth() const { return 860; }
    /// The distance of the content from either edge of an item of this width, at least the margin.
    Q_INVOKABLE double columnInset(double width, double margin) const;
    /// The colour, or black or white if the colour could hardly be seen on the ground.
    Q_INVOKABLE static QColor visibleOn(const QColor &ground, const QColor &color);
    bool hasLogo() const { return logoUrl().has_value(); }
    QUrl logo() const { return QUrl(logoUrl().value_or(QString())); }

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::optional<QString> &logoUrl() const;
    QColor branded(DynamicColor ColorScheme::*color) const;
    QColor byAppearance(QRgb light, QRgb dark) const;
    int scaled(int pixels) const;
};

} // namespace tolvane
