#pragma once
// The names that a scenario may use for the libraries' codes and bits.

#include "scenario/fields.h"

namespace simulator {

inline constexpr Name kAdapterTypes[] = {
    {"Peldra1", 1}, {"Peldra2 bg", 2}, {"Peldra2 abg", 3}, {"Vorny", 4}, {"Tusko", 8}};
inline constexpr Name kBands[] = {{"802.11a", 1}, {"802.11b", 2}, {"802.11g", 3}};
inline constexpr Name kAssociationStatuses[] = {{"Associated", 1},
                                                {"NotAssociated", 2},
                                                {"Ibss Created", 3},
                                                {"Ibss Joined", 4},
                                                {"Roamed", 5}};
inline constexpr Name kAuthenticationStatuses[] = {
    {"Disconnected", 1}, {"Authenticating", 2}, {"Failed authentication", 3}, {"Authenticated", 4}};
inline constexpr Name kOpModes[] = {{"Infrastructure", 1}, {"Ad hoc", 2}};
inline constexpr Name kEncryptions[] = {{"None", 1},        {"40-bit", 2},       {"104-bit", 3},
                                        {"CKIP 40-bit", 4}, {"CKIP 104-bit", 5}, {"TKIP", 6}};
inline constexpr Name kAuthenModes[] = {
    {"Open", 1},         {"Shared", 2},          {"WPA-Enterprise", 3},
    {"WPA-Personal", 4}, {"WPA2-Enterprise", 5}, {"WPA2-Personal", 6},
    {"CCX", 7}};
inline constexpr Name kAuthenAlgorithms[] = {{"No Authentication", 0},
                                             {"Md5", 1},
                                             {"Leap", 2},
                                             {"Tls", 3},
                                             {"Ttls", 4},
                                             {"Peap", 5},
                                             {"EapSim", 6},
                                             {"EapFast", 7}};
inline constexpr Name kCipherBits[] = {{"None", 0x01},       {"WEP40", 0x02},    {"TKIP", 0x04},
                                       {"Orvel Wrap", 0x08}, {"AES-CCMP", 0x10}, {"WEP104", 0x20},
                                       {"CKIP", 0x40}};
inline constexpr Name kAuthBits[] = {{"None", 0x01}, {"WPA", 0x02},    {"WPA_PSK", 0x04},
                                     {"Open", 0x08}, {"Shared", 0x10}, {"RSNA", 0x20},
                                     {"PSK", 0x40}};
inline constexpr Name kQualities[] = {{"Out of range", 2}, {"Poor", 3},      {"Fair", 4},
                                      {"Good", 5},         {"Very Good", 6}, {"Excellent", 7}};
inline constexpr Name kCardTypes[] = {
    {"Cardbus", 1},        {"PCI", 2},    {"MiniPCI", 4}, {"Embedded USB", 8}, {"Dongle USB", 16},
    {"Compact Flash", 32}, {"PCMCIA", 64}};
inline constexpr Name kAddressingModes[] = {{"Memory", 1}, {"I/O", 2}};
/// Rates in Mbit/s.
inline constexpr Name kRateBits[] = {{"1", 1u << 0},   {"2", 1u << 1},   {"5.5", 1u << 2},
                                     {"6", 1u << 3},   {"9", 1u << 4},   {"11", 1u << 5},
                                     {"12", 1u << 6},  {"18", 1u << 7},  {"24", 1u << 9},
                                     {"36", 1u << 10}, {"48", 1u << 11}, {"54", 1u << 12}};
inline constexpr Name kChannelABits[] = {
    {"34", 1u << 0},   {"36", 1u << 1},   {"38", 1u << 2},   {"40", 1u << 3},   {"42", 1u << 4},
    {"44", 1u << 5},   {"46", 1u << 6},   {"48", 1u << 7},   {"52", 1u << 8},   {"56", 1u << 9},
    {"60", 1u << 10},  {"64", 1u << 11},  {"100", 1u << 12}, {"104", 1u << 13}, {"108", 1u << 14},
    {"112", 1u << 15}, {"116", 1u << 16}, {"120", 1u << 17}, {"124", 1u << 18}, {"128", 1u << 19},
    {"132", 1u << 20}, {"136", 1u << 21}, {"140", 1u << 22}, {"149", 1u << 23}, {"153", 1u << 24},
    {"157", 1u << 25}, {"161", 1u << 26}, {"165", 1u << 27}};
inline constexpr Name kChannelBBits[] = {
    {"1", 1u << 0},   {"2", 1u << 1},   {"3", 1u << 2},   {"4", 1u << 3},  {"5", 1u << 4},
    {"6", 1u << 5},   {"7", 1u << 6},   {"8", 1u << 7},   {"9", 1u << 8},  {"10", 1u << 9},
    {"11", 1u << 10}, {"12", 1u << 11}, {"13", 1u << 12}, {"14", 1u << 13}};

}  // namespace simulator
