' Pre-flight bulletins, winds, routes, locations and general MET messages.
Dim stage: Set stage = create("SPFIBStageSpec")
stage.WeightCat = " m ": equal "WeightCat", stage.WeightCat, "M"
stage.ETD = #2026-11-16 22:00:00#: equal "ETD", stage.ETD, #2026-11-16 22:00:00#
equal "Departing", stage.Departing, ""
stage.Departing = " sy045025": equal "Departing", stage.Departing, "SY045025"
stage.Destination = "ymml": equal "Destination", stage.Destination, "YMML"
stage.Level = " f350 ": equal "Level", stage.Level, " f350 "
stage.AltDestination = "ymav": equal "AltDestination", stage.AltDestination, "YMAV"
stage.AltLevel = " f120": equal "AltLevel", stage.AltLevel, " f120"
isNothing "Route", stage.Route
Dim route: Set route = create("SPFIBRoute")
Set stage.Route = route: same "Route", stage.Route, route
Set stage.AltRoute = route: same "AltRoute", stage.AltRoute, route
route.addNamed "wol"
Dim i
For i = 1 To 10: stage.addAdditionalLocation " l" & i: Next
stage.addAdditionalLocation "  "
For i = 1 To 6: stage.addAdditionalArea " a" & i: Next
Dim text: text = written(stage)
startsWith "appendTo", text, "<ndd:adep><ndd:bear-dist>"
contains "appendTo", text, "<ndd:etd>2026-11-16T22:00:00Z</ndd:etd><ndd:ades><ndd:loc>YMML</ndd:loc>" & _
  "</ndd:ades><ndd:weight-category>M</ndd:weight-category><ndd:level> f350 </ndd:level><ndd:route>" & _
  "<ndd:waypoints><ndd:loc>WOL</ndd:loc></ndd:waypoints></ndd:route>" & _
  "<ndd:additional-loc>L1</ndd:additional-loc>"
contains "appendTo", text, "<ndd:additional-loc>L9</ndd:additional-loc><ndd:area>A1</ndd:area>"
contains "appendTo", text, "<ndd:area>A5</ndd:area><ndd:alternate><ndd:ades><ndd:loc>YMAV</ndd:loc>" & _
  "</ndd:ades><ndd:level> f120</ndd:level><ndd:route>"
Set stage.AltRoute = Nothing: isNothing "AltRoute", stage.AltRoute

Dim spec: Set spec = create("SPFIBSpec")
equal "Aircraft", spec.Aircraft, "NOSEND"
spec.Aircraft = " vhabc ": equal "Aircraft", spec.Aircraft, " vhabc "
spec.TAS = " n0440": equal "TAS", spec.TAS, " n0440"
equal "flag", spec.flag(6), False
spec.setFlag 6, True: equal "flag", spec.flag(6), True
spec.setFlag 0, True
isNothing "Item", spec.Item(1)
spec.addStage stage
equal "Count", spec.Count, 1
same "Item", spec.Item(1), stage
isNothing "Item(0)", spec.Item(0)
isNothing "Item(2)", spec.Item(2)
startsWith "appendTo", written(spec), "<ndd:domestic>true</ndd:domestic><ndd:acid> vhabc </ndd:acid>" & _
  "<ndd:stage>"
contains "appendTo", written(spec), "</ndd:stage><ndd:tas> n0440</ndd:tas>" & _
  "<ndd:exp-wind>false</ndd:exp-wind><ndd:intl-series-notam>false</ndd:intl-series-notam>" & _
  "<ndd:full-text-notam>false</ndd:full-text-notam><ndd:charts>false</ndd:charts>" & _
  "<ndd:mid-sigwx-gpwt>false</ndd:mid-sigwx-gpwt><ndd:variant>HI</ndd:variant>"
For i = 2 To 12: spec.addStage create("SPFIBStageSpec"): Next
equal "Count of stages is at most ten", spec.Count, 10

Dim request: Set request = create("SPFIBRqs")
isNothing "SPFIBSpec", request.SPFIBSpec
request.Duration = 30: equal "Duration", request.Duration, 30
request.Duration = 31: equal "Duration", request.Duration, 30
request.Duration = -1: equal "Duration", request.Duration, 30
request.Duration = 6: equal "Duration", request.Duration, 6
Set spec = create("SPFIBSpec")
Set request.SPFIBSpec = spec: same "SPFIBSpec", request.SPFIBSpec, spec
request.GroupId = " g ": equal "GroupId", request.GroupId, " g "
request.setFlag 30, True: equal "flag", request.flag(30), True
equal "flag", request.flag(0), False
contains "appendTo", written(request), "<ndd:spfib-rqs"
contains "appendTo", written(request), "PT6H</"
contains "appendTo", written(request), "<ndd:group-id><ndd:group-name> g </ndd:group-name></ndd:group-id>"

Set request = create("GetSPFIBRqs")
equal "Number", request.Number, ""
request.Number = "S1": equal "Number", request.Number, "S1"
contains "appendTo", written(request), "<ndd:number>S1</ndd:number></ndd:get-spfib-rqs>"

Set request = create("UpdateSPFIBRqs")
request.Duration = 30: equal "Duration", request.Duration, 30
request.Duration = 31: equal "Duration", request.Duration, 30
request.SPFIBNumber = "S1": equal "SPFIBNumber", request.SPFIBNumber, "S1"
request.StageCount = 10: equal "StageCount", request.StageCount, 10
request.StageCount = 11: equal "StageCount", request.StageCount, 10
request.StageCount = 0: equal "StageCount", request.StageCount, 10
request.StageCount = 2
contains "appendTo", written(request), "<ndd:update-spfib-rqs"
contains "appendTo", written(request), ">S1</"

Set request = create("ActiveSPFIBDirectoryRqs")
request.GroupId = " g ": equal "GroupId", request.GroupId, " g "
contains "appendTo", written(request), "<ndd:group-id><ndd:group-name> g </ndd:group-name></ndd:group-id>"
Dim entry: Set entry = create("SPFIBDescriptor")
entry.Number = " n ": equal "Number", entry.Number, " n "
entry.Aircraft = " a ": equal "Aircraft", entry.Aircraft, " a "
entry.DTG = #2026-11-16 02:23:00#: equal "DTG", entry.DTG, #2026-11-16 02:23:00#

Set stage = create("WindTempStage")
equal "ETD", stage.ETD, CDate(0)
equal "appendTo", written(stage), "<ndd:adep/><ndd:ades/><ndd:etd>1899-12-30T00:00:00Z</ndd:etd>"
stage.ETD = #2026-11-16 22:00:00#: equal "ETD", stage.ETD, #2026-11-16 22:00:00#
stage.Depart = " yssy ": equal "Depart", stage.Depart, "YSSY"
stage.Destination = " ymml ": equal "Destination", stage.Destination, "YMML"
equal "Route", stage.Route, ""
stage.Route = " wol  razzi ": equal "Route", stage.Route, "WOL  RAZZI"
stage.Route = "  ": equal "Route", stage.Route, "DCT"
equal "appendTo", written(stage), "<ndd:adep>YSSY</ndd:adep><ndd:ades>YMML</ndd:ades>" & _
  "<ndd:etd>2026-11-16T22:00:00Z</ndd:etd><ndd:route>DCT</ndd:route>"
Set request = create("WindTempProfileRqs")
request.TAS = " n0440 ": equal "TAS", request.TAS, "N0440"
contains "appendTo", written(request), "<ndd:tas>N0440</ndd:tas>"
For i = 1 To 11: request.addStage stage: Next
equal "at most ten stages", UBound(Split(written(request), "<ndd:stage>")), 10

Set request = create("RouteDirectoryRqs")
equal "DomesticOnly", request.DomesticOnly, True
equal "abstractReq.Scope", request.abstractReq.Scope, "domestic"
request.DomesticOnly = False: equal "DomesticOnly", request.DomesticOnly, False
equal "abstractReq.Scope", request.abstractReq.Scope, "international"
request.abstractReq.Scope = "domestic": equal "DomesticOnly", request.DomesticOnly, True
request.Depart = " yssy ": equal "Depart", request.Depart, "YSSY"
request.Destination = " ymml ": equal "Destination", request.Destination, "YMML"
contains "appendTo", written(request), ">YSSY</"
Set request = create("GetRouteRqs")
request.Depart = " yssy ": equal "Depart", request.Depart, "YSSY"
request.Code = " a1 ": equal "Code", request.Code, "A1"
request.Destination = " ymml ": equal "Destination", request.Destination, "YMML"
contains "appendTo", written(request), "<ndd:route><ndd:adep>YSSY</ndd:adep>" & _
  "<ndd:ades>YMML</ndd:ades><ndd:code>A1</ndd:code></ndd:route>"
Set entry = create("RouteSummary")
entry.Depart = " d ": equal "Depart", entry.Depart, " d "
entry.Destination = " e ": equal "Destination", entry.Destination, " e "
entry.RouteCode = " r ": equal "RouteCode", entry.RouteCode, " r "
entry.Description = " s ": equal "Description", entry.Description, " s "

Set request = create("LocAirspaceDirectoryRqs")
request.PartialName = " syd ": equal "PartialName", request.PartialName, "SYD"
contains "appendTo", written(request), "<ndd:loc>SYD</ndd:loc>"
Set entry = create("LocAirspaceDetails")
entry.Key = " k ": equal "Key", entry.Key, " k "
entry.Name = " n ": equal "Name", entry.Name, " n "
entry.Description = " d ": equal "Description", entry.Description, " d "
isNothing "Coord", entry.Coord
Dim point: Set point = create("CoordinatePoint")
Set entry.Coord = point: same "Coord", entry.Coord, point
Set entry.Coord = Nothing: isNothing "Coord", entry.Coord

Set request = create("GeneralMETMessageDirRqs")
contains "appendTo", written(request), "<ndd:general-met-dir-rqs"
Set request = create("GetGeneralMETMessageRqs")
contains "appendTo", written(request), "<ndd:name/><ndd:type/>"
request.Name = " n ": equal "Name", request.Name, " n "
request.MessageType = " t ": equal "MessageType", request.MessageType, " t "
contains "appendTo", written(request), "<ndd:name> n </ndd:name><ndd:type> t </ndd:type>"
finish
