' Points, and the route that collects them.
Dim named: Set named = create("NamedPoint")
equal "Name", named.Name, ""
equal "appendTo", written(named), "<root/>"
named.Name = " ysSy ": equal "Name", named.Name, "YSSY"
equal "toString", named.toString(), "YSSY"
equal "appendTo", written(named), "<ndd:loc>YSSY</ndd:loc>"

Dim coordinate: Set coordinate = create("CoordinatePoint")
equal "toString", coordinate.toString(), "9100N18100E"
equal "appendTo", written(coordinate), "<root/>"
coordinate.Lat = -33.8667: equal "Lat", coordinate.Lat, -33.8667
coordinate.Lon = 151.2: equal "Lon", coordinate.Lon, 151.2
equal "toString", coordinate.toString(), "3352S15112E"
equal "appendTo", written(coordinate), _
  "<ndd:coord><ndd:lat>-33.866700</ndd:lat><ndd:long>151.200000</ndd:long></ndd:coord>"
coordinate.Lat = 33.9999: coordinate.Lon = 5.5
equal "toString", coordinate.toString(), "3360N0530E"
coordinate.Lat = 0.5: coordinate.Lon = -0.25
equal "appendTo", written(coordinate), _
  "<ndd:coord><ndd:lat>.500000</ndd:lat><ndd:long>-.250000</ndd:long></ndd:coord>"

Dim bearing: Set bearing = create("BearingDistPoint")
equal "toString", bearing.toString(), "000000"
bearing.Name = " sy ": equal "Name", bearing.Name, "SY"
bearing.Bearing = 45: equal "Bearing", bearing.Bearing, 45
bearing.Distance = 25: equal "Distance", bearing.Distance, 25
equal "toString", bearing.toString(), "SY045025"
equal "appendTo", written(bearing), "<ndd:bear-dist><ndd:loc>SY</ndd:loc><ndd:bear>45</ndd:bear>" & _
  "<ndd:dist>025</ndd:dist></ndd:bear-dist>"
bearing.Bearing = -1: equal "Bearing", bearing.Bearing, -1
equal "appendTo", written(bearing), "<root/>"

Dim route: Set route = create("SPFIBRoute")
equal "Count", route.Count, 0
equal "appendTo", written(route), "<root/>"
route.Add named
route.Add coordinate, "middle"
route.Add bearing, "Last"
equal "Count", route.Count, 3
same "Item", route.Item(1), named
same "Item by key", route.Item("middle"), coordinate
same "Item by key, whatever its case", route.Item("LAST"), bearing
same "Item by a number in a variant", route.Item(CLng(2)), coordinate
same "Item by a number in a variant", route.Item(CDbl(2)), coordinate
Dim walked, place
walked = ""
For Each place In route
  walked = walked & place.toString() & " "
Next
equal "For Each", walked, "YSSY 0030N0015W SY-001025 "
Dim again: again = 0
For Each place In route
  again = again + 1
  If again = 1 Then same "For Each", place, named
Next
equal "For Each a second time", again, 3

On Error Resume Next
route.Add named, "MIDDLE"
raised "Add of a key that is there", 457, _
  "This key is already associated with an element of this collection"
Set place = route.Item(0)
raised "Item(0)", 9, "Subscript out of range"
Set place = route.Item(4)
raised "Item beyond Count", 9, "Subscript out of range"
Set place = route.Item("nowhere")
raised "Item of an unknown key", 5, "Invalid procedure call or argument"
route.Remove 0
raised "Remove(0)", 9, "Subscript out of range"
route.Remove "nowhere"
raised "Remove of an unknown key", 5, "Invalid procedure call or argument"
On Error Goto 0
equal "Count after refusals", route.Count, 3

route.Remove "middle": equal "Remove by key", route.Count, 2
same "Item after Remove", route.Item(2), bearing
route.Remove 1: equal "Remove by index", route.Count, 1
same "Item after Remove", route.Item(1), bearing
same "a removed key's neighbour", route.Item("last"), bearing
route.Add coordinate, "middle": equal "Add of a removed key", route.Count, 2
route.Clear: equal "Clear", route.Count, 0
walked = 0
For Each place In route
  walked = walked + 1
Next
equal "For Each of none", walked, 0

route.addNamed " yssy "
route.addNamed "sy045025"
route.addLatLon -10.5, 130
route.addBearingDistance "ml", 90, 5
isA "addNamed", route.Item(1), "NamedPoint"
isA "addNamed", route.Item(2), "BearingDistPoint"
isA "addLatLon", route.Item(3), "CoordinatePoint"
isA "addBearingDistance", route.Item(4), "BearingDistPoint"
equal "addNamed", route.Item(1).Name, "YSSY"
equal "addNamed", route.Item(2).Distance, 25
equal "addLatLon", route.Item(3).Lon, 130
equal "addBearingDistance", route.Item(4).Bearing, 90
same "a point of the route's own, each time", route.Item(3), route.Item(3)
startsWith "appendTo", written(route), _
  "<ndd:route><ndd:waypoints><ndd:loc>YSSY</ndd:loc></ndd:waypoints><ndd:waypoints><ndd:bear-dist>"
route.RouteCode = " h1 ": equal "RouteCode", route.RouteCode, "H1"
equal "appendTo", written(route), "<ndd:route><ndd:route-id>H1</ndd:route-id></ndd:route>"

' A point lives as long as the route holds it.
Set route = create("SPFIBRoute")
route.Add create("NamedPoint")
route.Item(1).Name = "kept"
equal "a point that only the route holds", route.Item(1).Name, "KEPT"
Set place = route.Item(1)
Set route = Nothing
equal "a point of a route let go", place.Name, "KEPT"

' A class of the script's own is a point when it can append itself.
Class Here
  Public calls
  Public Sub appendTo(parent, namespaceUri)
    calls = calls + 1
    parent.setAttribute "here", namespaceUri
  End Sub
  Public Function toString()
    toString = "HERE"
  End Function
End Class

Set route = create("SPFIBRoute")
Dim own: Set own = New Here
route.Add own, "own"
same "a point of the script", route.Item("own"), own
contains "a point of the script", written(route), "here=""" & schema & """"
equal "a point of the script", own.calls, 1
Dim segment: Set segment = create("ICAORouteSegment")
Set segment.Waypoint = own
same "a point of the script", segment.Waypoint, own
finish
