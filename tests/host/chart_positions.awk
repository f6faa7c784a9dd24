# awk -f chart_positions.awk PAGE: compares the charts of a report with the instances in it. Each curve is
# as high on the axis as its signal and above its channel, labels are in the order of strength, and all
# networks are counted. Prints what is not so, and how many curves and labels there were.
function attribute(name) {
  return match($0, " " name "=\"[^\"]*\"") ? substr($0, RSTART + length(name) + 3, RLENGTH - length(name) - 4) : ""
}
function wrong(what) { print FILENAME ": chart " charts ": " what; failed = 1 }
function close_chart(   channel, other) {
  if (labels + unlabelled != counted + 0) wrong(counted " networks, but " labels " labels and " unlabelled + 0 " more")
  for (channel in x) for (other in x) if (channel + 0 < other + 0 && x[channel] >= x[other]) wrong("channel " channel " is not left of " other)
  split("", x); labels = unlabelled = counted = 0; strength = ""; low = 0
}
/<svg .*data-lowest=/ { if (charts++) close_chart(); split("", axis); lowest = attribute("data-lowest"); highest = attribute("data-highest") }
/<text class="scale"/ {
  for (rest = $0; match(rest, /<text class="scale" x="[0-9.]*" y="[0-9.]*">-?[0-9]+</); rest = substr(rest, RSTART + RLENGTH)) {
    split(substr(rest, RSTART, RLENGTH), part, /["<>]/)
    axis[part[9]] = part[7] - 4
  }
}
/<text class="channel"/ {
  for (rest = $0; match(rest, /<text class="channel" x="[0-9.]*" y="[0-9.]*">[0-9]+</); rest = substr(rest, RSTART + RLENGTH)) {
    split(substr(rest, RSTART, RLENGTH), part, /["<>]/)
    x[part[9]] = part[5]
  }
}
/<path class="bell/ {
  ++curves
  $0 = substr($0, index($0, "<path class=\"bell"))
  signal = attribute("data-signal")
  split(attribute("d"), point, /[MCS ]/)
  shown = signal + 0 < lowest + 0 ? lowest : signal + 0 > highest + 0 ? highest : signal
  due = axis[lowest] + (axis[highest] - axis[lowest]) * (shown - lowest) / (highest - lowest)
  if (point[9] - due > 0.11 || due - point[9] > 0.11) wrong(signal " dBm is at " point[9] ", not at " due)
  if (!match($0, /, channel [0-9]+, -?[0-9]+ dBm/)) wrong("a curve does not say what it is")
  split(substr($0, RSTART + 10, RLENGTH), said, /[, ]+/)
  mac = substr($0, RSTART - 17, 17)
  drawn[mac] = said[2] " dBm on channel " said[1]
  if (said[2] != signal) wrong(mac " has " signal " dBm and says " said[2])
  if ((said[1] in x) && x[said[1]] != point[8]) wrong("channel " said[1] " is at " x[said[1]] " and at " point[8])
  x[said[1]] = point[8]
}
/<text data-signal=/ {
  ++labels; ++named
  $0 = substr($0, index($0, "<text data-signal="))
  signal = attribute("data-signal"); y = attribute("y")
  if (strength != "" && signal + 0 > strength + 0) wrong("a label of " signal " dBm after one of " strength)
  if (signal != strength) { stronger = low; strength = signal }
  if (y + 0 < stronger + 0) wrong("the label of " signal " dBm is above a stronger one")
  if (y + 0 > low + 0) low = y
}
/<text class="(count|more)"/ {
  for (rest = $0; match(rest, /<text class="(count|more)"[^>]*>\+?[0-9]+</); rest = substr(rest, RSTART + RLENGTH)) {
    split(substr(rest, RSTART, RLENGTH), part, /["<>]/)
    if (part[3] == "more") unlabelled += part[9]; else counted += part[9]
  }
}
/^  "WiFi_AdapterCachedScanList": \[/ { listed = 1 }
/^  \]/ { listed = 0 }
listed && /"(MacAddress|RSSI|ChannelID)": "/ {
  split($0, part, "\"")
  if (part[2] == "MacAddress") mac = part[4]
  else if (part[2] == "RSSI") rssi[mac] = part[4]
  else told[mac] = rssi[mac] " dBm on channel " part[4]
}
END {
  if (charts) close_chart()
  for (mac in drawn) if (drawn[mac] != told[mac]) wrong(mac " has " told[mac] ", and the chart says " drawn[mac])
  print curves + 0, "curves,", named + 0, "labels"
  exit failed
}
