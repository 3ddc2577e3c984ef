// Toolbar icons, drawn rather than shipped so they stay crisp at any scale.
#pragma once

#include <QIcon>
#include <QString>

namespace bw::qt {

// kind: "vehicle", "fighter", "dropship", "warship"; action: "new", "open", "delete".
QIcon DesignIcon(const QString& kind, const QString& action);

}  // namespace bw::qt
