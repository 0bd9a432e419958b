' What a script sees of a wrong call: the errors of its own language.
Dim config: Set config = create("NAIPSConfig")
Dim point: Set point = create("NamedPoint")
Dim stage: Set stage = create("SPFIBStageSpec")
Dim light: Set light = create("FirstLastLightRqs")
Dim area: Set area = create("AreaBriefingRqs")
Dim route: Set route = create("SPFIBRoute")
Dim plan: Set plan = create("ICAOFlightNotifStage")
Dim bearing: Set bearing = create("BearingDistPoint")
Dim groups: Set groups = create("GetGroupAffiliationRsp")
Dim nothingYet, value
Set nothingYet = Nothing
subject = "errors"

On Error Resume Next
value = config.NoSuchThing: raised "reading an unknown name", 438, ""
config.NoSuchThing = 1: raised "setting an unknown name", 438, ""
config.noSuchThing 1: raised "calling an unknown name", 438, ""
area.addLocation "YSSY": raised "a member of another class", 438, ""
groups.Count = 5: raised "setting what is read-only", 438, ""

config.Mode = "high": raised "a text for a 32-bit integer", 13, ""
bearing.Bearing = "east": raised "a text for a 16-bit integer", 13, ""
config.UseProxy = "perhaps": raised "a text for a Boolean", 13, ""
stage.ETD = "noon or so": raised "a text for a date", 13, ""
light.setLatLon "north", 1: raised "a text for a double", 13, ""
Set stage.Route = point: raised "an object of another class", 13, ""
Set light.Point = stage: raised "an object that is no point", 13, ""
route.Add stage: raised "an object that is no point", 13, ""
groups.Add stage: raised "an object of another class", 13, ""
groups.Add "text": raised "a text for an object", 13, ""
Set stage.Route = config: raised "an object of another class", 13, ""
point.Name = Null: raised "Null for a text", 13, ""
isNothing "Route is as before", stage.Route
equal "Count is as before", groups.Count, 0

light.setLatLon 1: raised "one argument too few", 450, ""
light.setNamed: raised "no argument", 450, ""
area.setFlag 1: raised "one argument too few", 450, ""
value = groups.Item: raised "no index", 450, ""

bearing.Bearing = 32768: raised "beyond 16 bits", 6, ""
bearing.Bearing = -32769: raised "beyond 16 bits", 6, ""
config.Mode = 2147483648: raised "beyond 32 bits", 6, ""
Set value = groups.Item(40000): raised "an index beyond 16 bits", 6, ""
light.setBearingDistance "SY", 40000, 1: raised "beyond 16 bits", 6, ""
area.setFlag 31, True: raised "a flag beyond the word", 6, "Overflow"
bearing.Bearing = 32767: raisedNothing "the last of 16 bits"
bearing.Bearing = -32768: raisedNothing "the first of 16 bits"
config.Mode = 2147483647: raisedNothing "the last of 32 bits"

Set value = route.Item(1): raised "an index out of range", 9, "Subscript out of range"
Set value = route.Item("k"): raised "an unknown key", 5, "Invalid procedure call or argument"
route.Add point, "k": raisedNothing "a key"
route.Add point, "K": raised "a key that is there", 457, _
  "This key is already associated with an element of this collection"
route.Remove 2: raised "an index out of range", 9, "Subscript out of range"
Set value = route.Item(point): raised "an object for an index", 13, ""
route.Add point, 7: raised "a number for a key", 13, ""

' A coordinate that text cannot hold: the fault reaches the host.
Dim coordinate: Set coordinate = CreateObject("Brevank.CoordinatePoint")
coordinate.Lat = 40000
value = coordinate.toString(): raised "toString", 6, "Overflow"

route.Clear
route.Add nothingYet: raisedNothing "no object in a route"
value = written(route): raised "a point that is no object", 91, "Object variable or With block variable not set"
point.Name = "abc"
point.appendTo point, "urn:x": raised "a parent that is no node", 13, ""
On Error Goto 0

' Conversions that automation makes are no errors.
bearing.Bearing = "45": equal "a number in a text", bearing.Bearing, 45
bearing.Bearing = 44.6: equal "a fraction", bearing.Bearing, 45
config.UseProxy = 1: equal "a number for a Boolean", config.UseProxy, True
config.UseProxy = "False": equal "a text that is a Boolean", config.UseProxy, False
point.Name = 123: equal "a number for a text", point.Name, "123"
stage.ETD = "2026-11-16 22:00:00": equal "a text that is a date", stage.ETD, #2026-11-16 22:00:00#
equal "names in any case", bearing.BEARING, 45
finish
