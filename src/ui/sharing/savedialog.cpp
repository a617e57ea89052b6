// SPDX-License-Identifier: MIT
#include "ui/sharing/savedialog.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

namespace tolvane {

namespace {

// Compiled at run time, since the module may be missing.
constexpr const char *dialog = R"qml(
    import QtQuick.Dialogs
    FileDialog {
        fileMode: FileDialog.SaveFile
        defaultSuffix: "jpg"
        nameFilters: ["JPEG (*.jpg *.jpeg)"]
    }
)qml";

} // namespace

SaveDialog::~SaveDialog()
{
    delete m_dialog;
}

bool SaveDialog::open(QQuickWindow *window, const QUrl &suggestion)
{
    delete m_dialog;
    QQmlComponent component(qmlEngine(this));
    component.setData(dialog, QUrl());
    if (!component.isReady())
        return false;
    m_dialog = component.createWithInitialProperties(
        {{QStringLiteral("parentWindow"), QVariant::fromValue<QWindow *>(window)},
         {QStringLiteral("currentFolder"), suggestion.adjusted(QUrl::RemoveFilename)},
         {QStringLiteral("selectedFile"), suggestion}});
    if (!m_dialog)
        return false;
    QQmlEngine::setObjectOwnership(m_dialog, QQmlEngine::CppOwnership);
    connect(m_dialog, SIGNAL(accepted()), this, SLOT(emitAccepted()));
    return QMetaObject::invokeMethod(m_dialog, "open");
}

void SaveDialog::emitAccepted()
{
    Q_EMIT accepted(m_dialog->property("selectedFile").toUrl());
}

} // namespace tolvane
