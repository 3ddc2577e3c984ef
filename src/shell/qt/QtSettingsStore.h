// The per-user settings store of the Qt program.
#pragma once

#include <QSettings>

#include "core/Ui.h"

namespace bw::qt {

class QtSettingsStore final : public ISettingsStore {
public:
    QtSettingsStore() : settings_("Tallowmere Workshop", "Brasswick Works 3.0") {}
    std::string Get(const std::string& section, const std::string& key, const std::string& def) override {
        QVariant v = settings_.value(QString::fromStdString(section + "/" + key));
        return v.isValid() ? v.toString().toStdString() : def;
    }
    void Set(const std::string& section, const std::string& key, const std::string& value) override {
        settings_.setValue(QString::fromStdString(section + "/" + key), QString::fromStdString(value));
        settings_.sync();
    }

private:
    QSettings settings_;
};

}  // namespace bw::qt
