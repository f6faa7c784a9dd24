#pragma once
// The codes and bits of the libraries with the texts that clients see, and the numbers of settings.
// If a property lists the texts of all bits, each text ends with the separator.

#include <cstdint>
#include <string_view>

#include "adapterapi/records.h"

namespace adapterapi {

struct CodeText {
  std::uint32_t code;
  std::string_view text;
};

/// The numbers of settings (GetSettingValue, SetBoosSeteing) and policies (GetPolicyValue,
/// SetPolicyValue).
namespace setting {
inline constexpr SettingNumber kAutoConnectPolicy{201};   ///< a policy: 0, 1 or 2
inline constexpr SettingNumber kSingleBssMode{406};       ///< flag
inline constexpr SettingNumber kPersistentProfiles{415};  ///< lowest bit: the store is in use
inline constexpr SettingNumber kPrelogonProfiles{416};    ///< lowest bit: the store is in use
inline constexpr SettingNumber kDisableRfControl{426};    ///< flag
}  // namespace setting

namespace codes {

// 5 to 7 have no text.
inline constexpr CodeText kAdapterTypes[] = {
    {1, "Peldra1"}, {2, "Peldra2 bg"}, {3, "Peldra2 abg"}, {4, "Vorny"}, {8, "Tusko"},
};

inline constexpr CodeText kBands[] = {{1, "802.11a"}, {2, "802.11b"}, {3, "802.11g"}};

inline constexpr CodeText kAssociationStatuses[] = {
    {1, "Associated"}, {2, "NotAssociated"}, {3, "Ibss Created"}, {4, "Ibss Joined"}, {5, "Roamed"},
};

inline constexpr CodeText kAuthenticationStatuses[] = {
    {1, "Disconnected"},
    {2, "Authenticating"},
    {3, "Failed authentication"},
    {4, "Authenticated"},
};

inline constexpr std::uint32_t kInfrastructure = 1;
inline constexpr std::uint32_t kAdHoc = 2;
inline constexpr CodeText kOpModes[] = {{kInfrastructure, "Infrastructure"}, {kAdHoc, "Ad hoc"}};

// The blank after TKIP belongs to the text.
inline constexpr CodeText kEncryptions[] = {
    {1, "None"},        {2, "40-bit"},       {3, "104-bit"},
    {4, "CKIP 40-bit"}, {5, "CKIP 104-bit"}, {6, "TKIP "},
};

inline constexpr CodeText kAuthenModes[] = {
    {1, "Open"},         {2, "Shared"},          {3, "WPA-Enterprise"},
    {4, "WPA-Personal"}, {5, "WPA2-Enterprise"}, {6, "WPA2-Personal"},
    {7, "CCX"},
};

// Unlike the others, these codes start at 0.
inline constexpr CodeText kAuthenAlgorithms[] = {
    {0, "No Authentication"},
    {1, "Md5"},
    {2, "Leap"},
    {3, "Tls"},
    {4, "Ttls"},
    {5, "Peap"},
    {6, "EapSim"},
    {7, "EapFast"},
};

// In these two tables the first row whose bit is set wins: the strongest is first.
inline constexpr CodeText kCiphers[] = {
    {0x10, "AES-CCMP"}, {0x04, "TKIP"},  {0x08, "Orvel Wrap"}, {0x40, "CKIP"},
    {0x20, "WEP104"},   {0x02, "WEP40"}, {0x01, "None"},
};
inline constexpr CodeText kAuthentications[] = {
    {0x20, "RSNA"}, {0x02, "WPA"},    {0x40, "PSK"},  {0x04, "WPA_PSK"},
    {0x08, "Open"}, {0x10, "Shared"}, {0x01, "None"},
};

inline constexpr CodeText kSignalQualities[] = {
    {2, "Out of range"}, {3, "Poor"}, {4, "Fair"}, {5, "Good"}, {6, "Very Good"}, {7, "Excellent"},
};

inline constexpr CodeText kCardTypes[] = {
    {1, "Cardbus"},        {2, "PCI"},     {4, "MiniPCI"}, {8, "Embedded USB"}, {16, "Dongle USB"},
    {32, "Compact Flash"}, {64, "PCMCIA"},
};

inline constexpr CodeText kAddressingModes[] = {{1, "Memory"}, {2, "I/O"}};

// In Mbit/s; bit 8 has no rate.
inline constexpr CodeText kRates[] = {
    {1u << 0, "1, "},  {1u << 1, "2, "},   {1u << 2, "5.5, "}, {1u << 3, "6, "},
    {1u << 4, "9, "},  {1u << 5, "11, "},  {1u << 6, "12, "},  {1u << 7, "18, "},
    {1u << 9, "24, "}, {1u << 10, "36, "}, {1u << 11, "48, "}, {1u << 12, "54, "},
};

// Channel numbers; higher bits have no text.
inline constexpr CodeText k5GhzChannels[] = {
    {1u << 0, "34, "},   {1u << 1, "36, "},   {1u << 2, "38, "},   {1u << 3, "40, "},
    {1u << 4, "42, "},   {1u << 5, "44, "},   {1u << 6, "46, "},   {1u << 7, "48, "},
    {1u << 8, "52, "},   {1u << 9, "56, "},   {1u << 10, "60, "},  {1u << 11, "64, "},
    {1u << 12, "100, "}, {1u << 13, "104, "}, {1u << 14, "108, "}, {1u << 15, "112, "},
    {1u << 16, "116, "}, {1u << 17, "120, "}, {1u << 18, "124, "}, {1u << 19, "128, "},
    {1u << 20, "132, "}, {1u << 21, "136, "}, {1u << 22, "140, "}, {1u << 23, "149, "},
    {1u << 24, "153, "}, {1u << 25, "157, "}, {1u << 26, "161, "}, {1u << 27, "165, "},
};
inline constexpr CodeText k2GhzChannels[] = {
    {1u << 0, "1, "},   {1u << 1, "2, "},   {1u << 2, "3, "},   {1u << 3, "4, "},
    {1u << 4, "5, "},   {1u << 5, "6, "},   {1u << 6, "7, "},   {1u << 7, "8, "},
    {1u << 8, "9, "},   {1u << 9, "10, "},  {1u << 10, "11, "}, {1u << 11, "12, "},
    {1u << 12, "13, "}, {1u << 13, "14, "},
};

}  // namespace codes
}  // namespace adapterapi
