// SPDX-License-Identifier: MIT
#include <tolvane/views.h>

#include <QtQml/QQmlEngineExtensionPlugin>

// Types and resources are in the library of views, which is loaded with the plugin.
class TolvanePlugin final : public QQmlEngineExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlEngineExtensionInterface_iid)
};

#include "plugin.moc"
