// SPDX-FileCopyrightText: The GCodeAddin developers
// SPDX-License-Identifier: GPL-2.0-or-later
#include "SettingsReader.h"

#include <cstddef>
#include <istream>
#include <iterator>
#include <utility>
#include <vector>

#include "SettingsFile.h"
#include "files/InputFile.h"
#include "files/PrintableText.h"

namespace {

/// Before it is read: a pipe would be waited for, a device might never end.
std::string checkSettingsFile(const std::string& path) {
    constexpr std::size_t kLongest = std::size_t{16} << 20;
    std::string cause;
    const kxfiles::FileDescriptor file = kxfiles::openInput(path, &cause);
    if (!file || !kxfiles::isReadable(file, kLongest, &cause)) {
        throw CLI::FileError(path + ": " + cause, CLI::ExitCodes::FileError);
    }
    return {};
}

/// Gives what stands in the settings file to the options that the command line does not give.
class SettingsReader : public CLI::ConfigTOML {
public:
    SettingsReader(CLI::App* app, std::shared_ptr<OptionSet> fromFile)
        : m_app(app), m_fromFile(std::move(fromFile)) {}

    /// Leaves nothing to be taken from the file by the caller.
    std::vector<CLI::ConfigItem> from_config(std::istream& input) const override {
        const std::string file = m_app->get_config_ptr()->as<std::string>();
        const std::string text((std::istreambuf_iterator<char>(input)), {});
        if (const std::size_t line = kxfiles::firstLineOfNoText(text)) {
            throw SettingsError(file, static_cast<int>(line), "this line is not UTF-8 text");
        }
        const Settings settings = readSettings(text);
        if (!settings.error.empty()) {
            throw SettingsError(file, settings.errorLine, settings.error);
        }
        OptionSet seen;
        for (const Setting& setting : settings.list) {
            const std::string problem = apply(setting, &seen);
            if (!problem.empty()) {
                throw SettingsError(file, setting.line, problem);
            }
        }
        return {};
    }

private:
    CLI::Option* optionOf(const std::string& name) const {
        CLI::Option* const option = m_app->get_option_no_throw("--" + name);
        if (option != nullptr || name.empty() || name.front() == '-') {
            return option;
        }
        CLI::Option* const letter = m_app->get_option_no_throw("-" + name);
        return letter != nullptr ? letter : m_app->get_option_no_throw(name);
    }

    /// What stands against a setting; empty when nothing does.
    std::string apply(const Setting& setting, OptionSet* seen) const {
        CLI::Option* const option = optionOf(setting.name);
        if (option == nullptr || !option->get_configurable()) {
            return "'" + setting.name + "' is no setting";
        }
        if (!seen->insert(option).second) {
            return "'" + setting.name + "' is set a second time";
        }
        const bool takesList = option->get_items_expected_max() > 1;
        if (!takesList && setting.isList) {
            return "'" + setting.name + "' takes one value, not a list";
        }
        if (option->count() > 0) {
            return {};
        }
        m_fromFile->insert(option);
        return give(setting, option);
    }

    static std::string give(const Setting& setting, CLI::Option* option) {
        try {
            if (option->get_expected_min() == 0) {
                option->add_result(option->get_flag_value(setting.name, setting.values.front()));
            } else {
                option->add_result(setting.values);
            }
            if (option->count() > 0) {
                option->run_callback();
            }
        } catch (const CLI::Error& error) {
            return error.what();
        }
        return {};
    }

    CLI::App* m_app;
    std::shared_ptr<OptionSet> m_fromFile;
};

}  // namespace

std::shared_ptr<const OptionSet> addSettingsFile(CLI::App& app) {
    const auto fromFile = std::make_shared<OptionSet>();
    app.set_config("--config", "", "Settings file (TOML) with any of these options")
        ->type_name("FILE");
    app.get_config_ptr()->check(CLI::Validator(checkSettingsFile, ""));
    app.config_formatter(std::make_shared<SettingsReader>(&app, fromFile));
    return fromFile;
}
