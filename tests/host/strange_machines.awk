# awk -v machine=NAME -f strange_machines.awk: a scenario of a machine that a page must not misread; without
# a name, the names.
function mac(a, b, c) { return sprintf("\"02:%02X:%02X:%02X:%02X:%02X\"", a, int(b / 256), b % 256, int(c / 256), c % 256) }
function open(text) { printf "%s%s", gap, text; gap = "" }
function close_(text) { printf "%s", text; gap = ",\n" }
function network(name, adapter, number, signal, channel, band, auth) {
  open("{\"ssid\": " name ", \"mac\": " mac(1, adapter, number) ", \"rssi\": " signal ", \"channel\": " channel)
  printf ", \"band\": \"%s\", \"opMode\": \"Infrastructure\", ", band == "" ? (channel > 14 ? "802.11a" : "802.11g") : band
  if (auth == "open") printf "\"encrypted\": false, \"auth\": [\"Open\"], \"unicast\": [\"None\"], \"multicast\": [\"None\"]"
  else printf "\"encrypted\": true, \"auth\": [\"PSK\"], \"unicast\": [\"AES-CCMP\"], \"multicast\": [\"AES-CCMP\"]"
  close_("}")
}
function quoted(text) { return "\"" text "\"" }
function start_adapter(number, more) { open("{\"mac\": " mac(0, 0, number) more ", \"cachedNetworks\": ["); gap = "\n" }
function end_adapter() { close_("]}") }
function crowd(adapter, count, channel,   n) {
  for (n = 0; n < count; ++n) network(quoted("Network " n), adapter, n, -35 - (n * 7) % 60, channel ? channel : 1 + n % 13)
}
function hears(adapter, count,   n) { for (n = 0; n < count; ++n) network(quoted("Net " adapter "." n), adapter, n, -40 - 9 * n, 1 + 5 * (n % 3), "", n == 1 ? "open" : "") }
function names(   i, n, list) {
  n = split("\"0123456789abcdef0123456789abcdef\"|{\"hex\": \"D7A9D7A4D799D7A8D790\"}|{\"hex\": \"E697A5E69CACE8AA9E\"}|{\"hex\": \"F09F938AF09F9880\"}|\"<script>alert(1)</script>\"|{\"hex\": \"8D8F9D41\"}|{\"hex\": \"436166C3A9\"}|\"\"|\"Caf\303\251\"", list, "|")
  for (i = 1; i <= n; ++i) network(list[i], 1, i, -40 - 5 * i, i)
}
BEGIN {
  all = "fifty-adapters thousand-in-a-band forty-on-a-channel first-radio-off start-failed class-failed all-calls-fail wild-signals no-place wild-names no-adapter empty-lists five-thousand two-hundred-adapters"
  if (machine == "") { print all; exit }
  printf "{"
  open("\"adapters\": [")
  if (machine == "fifty-adapters") for (i = 1; i <= 50; ++i) { start_adapter(i); hears(i, 3); end_adapter() }
  else if (machine == "two-hundred-adapters") for (i = 1; i <= 200; ++i) { start_adapter(i); hears(i, 2); end_adapter() }
  else if (machine == "no-adapter") ;
  else if (machine == "first-radio-off") {
    start_adapter(1, ", \"radioState\": false, \"hwRadioState\": false"); end_adapter()
    start_adapter(2, ", \"association\": {\"opMode\": 1, \"bssid\": " mac(1, 2, 1) "}"); hears(2, 5); end_adapter()
  } else if (machine == "empty-lists") for (i = 1; i <= 2; ++i) { start_adapter(i); end_adapter() }
  else if (machine == "wild-signals") {
    start_adapter(1)
    split("30 0 -1 -30 -31 -99 -100 -101 -150 -200", levels, " ")
    for (i = 1; i <= 10; ++i) network(quoted("at " levels[i]), 1, i, levels[i], i)
    end_adapter()
  } else if (machine == "no-place") {
    start_adapter(1)
    network(quoted("on zero"), 1, 1, -50, 0); network(quoted("on 15"), 1, 2, -51, 15, "802.11g")
    network(quoted("on 255"), 1, 3, -52, 255); network(quoted("36 among 2.4"), 1, 4, -53, 36, "802.11g")
    network(quoted("well placed"), 1, 5, -54, 6)
    end_adapter()
  } else {
    start_adapter(1)
    if (machine == "thousand-in-a-band") crowd(1, 1000, 0)
    else if (machine == "five-thousand") crowd(1, 5000, 0)
    else if (machine == "forty-on-a-channel") crowd(1, 40, 6)
    else if (machine == "wild-names") names()
    else hears(1, 3)
    end_adapter()
    if (machine == "class-failed") { start_adapter(2); hears(2, 3); end_adapter() }
  }
  close_("]")
  if (machine == "start-failed") { open("\"faults\": [{\"operation\": \"GetAdapterList\", \"status\": \"0x80070005\"}]") }
  else if (machine == "class-failed") { open("\"faults\": [{\"operation\": \"GetDeviceInfo\", \"adapter\": 1, \"status\": \"0x80004005\"}, {\"operation\": \"GetCachedScanList\", \"adapter\": 2, \"exception\": \"gone\"}]") }
  else if (machine == "all-calls-fail") {
    open("\"faults\": ["); gap = ""
    n = split(operations, list, " ")
    for (i = 1; i <= n; ++i) { open("{\"operation\": \"" list[i] "\", \"status\": \"0x80004005\"}"); close_("") }
    close_("]")
  }
  print "}"
}
