// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtGui/QColor>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

struct DynamicColor;

/// The branding's colours for the appearance of the display. Views read them as they are built; a
/// change of the appearance tells those that are there.
class Theme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
    Q_PROPERTY(QColor primaryColor READ primaryColor NOTIFY changed)

public:
    explicit Theme(QObject *parent = nullptr);

    bool isDark() const;
    QColor primaryColor() const;

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QColor resolved(const DynamicColor &color) const;
};

} // namespace tolvane
