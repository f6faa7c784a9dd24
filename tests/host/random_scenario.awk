# awk -v seed=N -f random_scenario.awk: makes a random scenario of the values that its reference allows
# and that the classes show. For values that the classes show in another form, only those are used that
# the form distinguishes.
function below(n) { return int(rand() * n) }
function one(list,   n, parts) { n = split(list, parts, "|"); return parts[1 + below(n)] }
function flag() { return one("true|false|1|7|0x80000000|\"0x80000000\"") ~ /^(true|1|7)/ ? "true" : one("false|2|\"0xFFFFFFFF\"") }
function number() { return one("0|1|7|1000000|2147483647|2147483648|4294967295|\"0xDEADBEEF\"") }
function signed() { return one("0|-1|-52|2147483647|-2147483648|1000") }
function code(names) { return one(names "|0|99|\"0xFFFFFFFF\"") }
function bytes(n,   text) { while (n-- > 0) text = text one("41|E9|80|7E|22|3C|5C|21|9F"); return "{\"hex\": \"" text "\"}" }
function text(room) {
  return below(4) == 0 ? bytes(below(room + 1)) : one("\"\"|\"a\"|\"Café\"|\"<b>&amp;\"|\"a \\\"b\\\"\"|\"C:\\\\x\"|\"€uro\"")
}
function mac(   address, i) { for (i = 0; i < 5; ++i) address = address ":" sprintf("%02X", below(256)); return "\"02" address "\"" }
function bits(names,   i, n, parts, all) {
  n = split(names, parts, "|")
  for (i = 1; i <= n; ++i) if (below(2)) all = all (all == "" ? "" : ", ") parts[i]
  return "[" all "]"
}
function array(n, kind,   all) {
  while (n-- > 0) all = all (all == "" ? "" : ", ") (kind == "text" ? text(49) : kind == "level" ? below(40) - 10 : number())
  return "[" all "]"
}
function put(name, value) { printf "%s\"%s\": %s", gap, name, value; gap = ",\n" }
function open(name) { printf "%s%s{", gap, name == "" ? "" : "\"" name "\": "; gap = "" }
function close_(end) { printf "%s", end == "" ? "}" : end; gap = ",\n" }
function each(names, kind,   i, n, parts) {
  n = split(names, parts, " ")
  for (i = 1; i <= n; ++i) put(parts[i], kind == "number" ? number() : kind == "flag" ? flag() : kind == "signed" ? signed() : text(kind))
}
function network(available) {
  open()
  put("ssid", text(33)); put("mac", mac())
  put("band", code("1|2|3")); put("opMode", code("1|2")); put("rssi", below(65536) - 32768)
  put("channel", available ? below(65536) : below(256))
  if (!available) {
    put("encrypted", flag()); put("stealth", flag())
    put("auth", bits("\"RSNA\"|\"WPA\"|\"PSK\"|\"WPA_PSK\"|\"Open\"|\"Shared\"|\"None\""))
    put("unicast", bits("\"AES-CCMP\"|\"TKIP\"|\"Orvel Wrap\"|\"CKIP\"|\"WEP104\"|\"None\""))
    put("multicast", bits("\"AES-CCMP\"|\"WEP40\"|\"None\""))
  }
  close_()
}
function list(name, kind,   n) {
  printf "%s\"%s\": [", gap, name; gap = ""
  for (n = below(4); n > 0; --n) {
    if (kind == "exclude") {
      open(); put("ssid", text(32)); put("mac", mac())
      put("reason", one("\"0x1\"|\"0x20\"|\"0x40\"|\"0x8000\"|\"0x10000\"|0|\"0xFFFFFFFF\"")); close_()
    } else network(kind == "available")
  }
  close_("]")
}
function adapter() {
  open()
  put("mac", mac())
  put("type", code("1|2|3|4|8")); put("band", code("1|2|3")); put("associationStatus", code("1|2|3|4|5"))
  each("radioState hwRadioState registrationState readyForProfileState adapterState xpZeroConfigEnabled", "flag")
  each("ibssTxPower pspMode protocolPreference connectionPreference", "number")
  each("txRate ccxTpcPower", "signed")
  put("supportedRates", number()); put("authenticationStatus", code("1|2|3|4"))
  put("lastAppliedProfile", text(64))
  open("ccxVersion"); put("major", below(256)); put("minor", below(256)); put("build", below(256)); close_()
  open("ccxPowerLevels"); put("levels", array(below(6), "level")); close_()
  open("channels"); each("channelA channelADefault channelAOptions channelB channelBDefault channelBOptions", "number"); close_()
  open("association")
  each("associated authenEnabled", "flag"); put("profileName", below(3) ? text(64) : "\"@direct@\""); put("ssid", text(33))
  put("bssid", mac()); put("rate", number()); put("opMode", code("1|2")); put("channel", below(256))
  put("authenAlgorithm", code("1|5|7|8")); put("encryption", code("1|6|7")); put("authenMode", code("1|7|8"))
  close_()
  open("associationStats"); each("rssi", "signed"); each("numAps roamCount rxBeacons percentMissedBeacons", "number"); close_()
  open("device")
  each("", ""); put("vendorId", below(65536)); put("deviceId", below(65536)); put("subsystemId", below(65536))
  put("subsystemVendorId", below(65536)); put("revisionId", below(256)); put("hardwareId", below(65536)); put("cardType", code("1|2|4|64"))
  close_()
  open("configuration")
  each("interruptNumber memorySize attributeMemorySize", "signed"); put("socketNumber", below(65536)); put("addressingMode", code("1|2"))
  each("ioAddress memoryAddress attributeMemoryAddress controllerIoAddress packetFilterMask", "number"); close_()
  open("versions"); each("driver firmware11a firmware11b firmware11g microcode11a microcode11b microcode11g eeprom", 32); close_()
  open("features"); each("antennaDiversity qos powerMode security8021x hwRadioSwitch", "flag"); close_()
  open("signal"); put("quality", code("2|7|8")); each("rssi", "signed"); each("percentMissedBeacons percentTxRetries crcErrors", "number"); close_()
  open("tcpip")
  each("dhcpEnabled dnsFromDhcp winsFromDhcp", "flag"); put("ipAddress", text(50)); put("scopeId", text(34))
  each("defaultGateway dhcpServer dhcpSubnetMask dnsPrimary dnsSecondary winsPrimary winsSecondary domain", 25); close_()
  open("tcpipv6")
  each("dhcpEnabled dnsFromDhcp winsFromDhcp", "flag")
  put("ipAddresses", "[\"fe80::1\", \"\", \"2001:db8::7\"]"); put("gateways", one("[]|[\"\", \"fe80::2\"]"))
  if (below(3) == 0) { put("addressCount", 2 + below(40)); put("gatewayCount", below(40)) }
  each("dhcpServer dhcpSubnetMask dnsPrimary dnsSecondary winsPrimary winsSecondary domain scopeId", 50); close_()
  open("traffic"); put("rates", array(16)); put("rxDirectPacketsRate", array(below(17))); each("txTotalPackets txTotalBytes rxNonDirectPackets", "number"); close_()
  list("cachedNetworks"); list("availableNetworks", "available"); list("excludeList", "exclude")
  close_()
}
function store(name,   n) {
  printf "%s\"%s\": [", gap, name; gap = ""
  for (n = below(3); n > 0; --n) {
    open(); put("name", "\"" one("one|zwei|Ünïcödé") below(99) "\""); put("ssid", text(33)); put("mandatoryAp", text(33))
    put("opMode", code("1|2")); put("stealth", flag()); put("encryption", code("1|6|7")); put("authentication", code("1|2|5")); close_()
  }
  close_("]")
}
BEGIN {
  srand(seed)
  open()
  put("apiVersion", number())
  open("platform"); put("osVersion", one("\"5.0\"|\"5.1\"|\"6.1\"|\"10.0\"")); close_()
  open("settings"); put(406, one("0|1|2|null")); put(426, one("0|1|null")); close_()
  open("policies"); put(201, one("0|2|4294967295|null")); close_()
  printf "%s\"adapters\": [", gap; gap = ""
  for (adapters = 1 + below(3); adapters > 0; --adapters) adapter()
  close_("]")
  open("profiles"); store("user"); store("persistent"); store("prelogon"); store("postlogon"); store("itprofile"); close_()
  printf "%s\"faults\": [", gap; gap = ""
  if (below(2)) {
    open(); put("operation", "\"" one("GetBand|GetDeviceInfo|GetAssociationInfo|GetTxRxStats|GetExcludeList|GetCcxVersion|GetConnectionPreference|GetTcpipv6ConfigInfo") "\"")
    put(one("status|exception"), "\"0x80004005\""); put("adapter", 1); close_()
  }
  close_("]"); close_("}\n")
}
