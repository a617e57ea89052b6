// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Export macros of the libraries.

#include <QtCore/qglobal.h>

/// Marks the exported symbols of the core; all others are hidden.
#if defined(TOLVANE_STATIC)
#define TOLVANE_EXPORT
#elif defined(TOLVANE_BUILDING_CORE)
#define TOLVANE_EXPORT Q_DECL_EXPORT
#else
#define TOLVANE_EXPORT Q_DECL_IMPORT
#endif

/// The same for the library of views.
#if defined(TOLVANE_STATIC)
#define TOLVANE_VIEWS_EXPORT
#elif defined(TOLVANE_BUILDING_VIEWS)
#define TOLVANE_VIEWS_EXPORT Q_DECL_EXPORT
#else
#define TOLVANE_VIEWS_EXPORT Q_DECL_IMPORT
#endif
