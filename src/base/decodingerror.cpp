// SPDX-License-Identifier: MIT
#include "base/decodingerror.h"

namespace tolvane {

DecodingError::DecodingError(Kind kind, QString codingPath, const QString &problem)
    : Error(ErrorDomain::decoding, kind,
            codingPath.isEmpty() ? problem : codingPath + QLatin1String(": ") + problem)
    , m_codingPath(std::move(codingPath))
{
}

} // namespace tolvane
