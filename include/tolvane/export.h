// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// What the libraries show of themselves.

#include <QtCore/qglobal.h>

/// Marks what the shared library shows to its users; everything else stays hidden.
#if defined(TOLVANE_STATIC)
#define TOLVANE_EXPORT
#elif defined(TOLVANE_BUILDING_CORE)
#define TOLVANE_EXPORT Q_DECL_EXPORT
#else
#define TOLVANE_EXPORT Q_DECL_IMPORT
#endif

/// The same, for what is in the library of views.
#if defined(TOLVANE_STATIC)
#define TOLVANE_VIEWS_EXPORT
#elif defined(TOLVANE_BUILDING_VIEWS)
#define TOLVANE_VIEWS_EXPORT Q_DECL_EXPORT
#else
#define TOLVANE_VIEWS_EXPORT Q_DECL_IMPORT
#endif
