#pragma once

#include <span>
#include <string_view>

namespace qv {

// What a setting's memory variable holds: text as stored, or a 16-bit whole number (ticks, counters, minutes).
enum class SettingKind { Text, Integer };

// A key read at boot into the variable of the same name.
struct BootSettingKey
{
    std::string_view key;
    SettingKind kind;
};

// A key that apply_disk_var recognises: the text it is compared with and the variable it fills.
struct AppliedSettingKey
{
    std::string_view compared;
    std::string_view variable;
    SettingKind kind;
};

// Every key read at boot, in reading order.
std::span<const BootSettingKey> boot_setting_keys();

// Every key apply_disk_var knows: the boot keys and the two session-only keys.
std::span<const AppliedSettingKey> applied_setting_keys();

// The entry whose compared text equals the key exactly, or nullptr.
const AppliedSettingKey* find_applied_setting_key(std::string_view key);

} // namespace qv
