# Checks that every class of members.txt is registered; the files are what registration has added to
# the registry, as text, and members.txt. A line for each failure. "root" is where it is registered.
function value(key, name) { return values[tolower(root "\\Software\\Classes\\" key "]" name)] }

function expect(what, actual, expected) {
  if (actual != expected) print "FAILED: " what ": \"" actual "\" is not \"" expected "\""
}

FNR == NR && /^\[/ { key = tolower(substr($0, 2)); next }
FNR == NR && match($0, /="/) {
  name = $0 ~ /^@/ ? "" : substr($0, 2, RSTART - 3)
  text = substr($0, RSTART + 2, length($0) - RSTART - 2)
  gsub(/\\\\/, "\\", text)
  values[key tolower(name)] = text
}

FNR != NR && /^class / {
  class = $2
  id = value("Brevank." class "\\CLSID")
  if (id !~ /^\{.*\}$/) {
    print "FAILED: Brevank." class " has no class in " root
    next
  }
  expect(class ".1", value("Brevank." class ".1\\CLSID"), id)
  expect("CurVer of " class, value("Brevank." class "\\CurVer"), "Brevank." class ".1")
  expect("ProgID of " class, value("CLSID\\" id "\\ProgID"), "Brevank." class ".1")
  expect("VersionIndependentProgID of " class, value("CLSID\\" id "\\VersionIndependentProgID"),
         "Brevank." class)
  expect("threading of " class, value("CLSID\\" id "\\InprocServer32", "ThreadingModel"),
         "Apartment")
  server = value("CLSID\\" id "\\InprocServer32")
  if (tolower(server) !~ /\\ktpnaips\.dll$/) print "FAILED: server of " class ": " server
  library = value("CLSID\\" id "\\TypeLib")
  expect("library of " class, value("TypeLib\\" library "\\1.0\\0\\win64"), server)
}
