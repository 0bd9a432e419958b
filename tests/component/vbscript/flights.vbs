' Flight notifications, and the requests that file them.
Dim stage: Set stage = create("ICAOFlightNotifStage")
contains "appendTo", written(stage), "<ndd:acid>NOSEND</ndd:acid><ndd:frul>V</ndd:frul><ndd:ftyp>G</ndd:ftyp>" & _
  "<ndd:num-acft>1</ndd:num-acft><ndd:atyp>ZZZZ</ndd:atyp><ndd:wtc>L</ndd:wtc>"
stage.Registration = " vhabc ": equal "Registration", stage.Registration, "VHABC"
stage.AltDestination = " ymav ": equal "AltDestination", stage.AltDestination, "YMAV"
stage.Aircraft = " vh  abc ": equal "Aircraft", stage.Aircraft, "VH ABC"
stage.Aircraft = "  ": equal "Aircraft", stage.Aircraft, "NOSEND"
stage.FlightRules = " ifr": equal "FlightRules", stage.FlightRules, "I"
stage.FlightRules = "Q": equal "FlightRules", stage.FlightRules, "I"
stage.FlightRules = "y": equal "FlightRules", stage.FlightRules, "Y"
stage.FlightRules = " ": equal "FlightRules", stage.FlightRules, ""
stage.TypeOfFlight = "military": equal "TypeOfFlight", stage.TypeOfFlight, "M"
stage.TypeOfFlight = "z": equal "TypeOfFlight", stage.TypeOfFlight, "M"
stage.AircraftType = "b738": equal "AircraftType", stage.AircraftType, "B738"
stage.AircraftType = "B7378": equal "AircraftType", stage.AircraftType, "B738"
stage.WTC = "heavy": equal "WTC", stage.WTC, "H"
stage.WTC = "x": equal "WTC", stage.WTC, "H"
stage.NavComEquip = " s d f ": equal "NavComEquip", stage.NavComEquip, "SDF"
stage.NavComEquip = " ": equal "NavComEquip", stage.NavComEquip, "N"
stage.SSREquip = " l b1 ": equal "SSREquip", stage.SSREquip, "LB1"
stage.SSREquip = "": equal "SSREquip", stage.SSREquip, "N"
stage.Depart = " ymml ": equal "Depart", stage.Depart, "YMML"
contains "appendTo", written(stage), "<ndd:adep> ymml </ndd:adep>"
stage.Destination = " yssy ": equal "Destination", stage.Destination, "YSSY"
stage.TEET = 90: equal "TEET", stage.TEET, 90
stage.TEET = 0: equal "TEET", stage.TEET, 90
stage.TEET = -5: equal "TEET", stage.TEET, 90
contains "appendTo", written(stage), "<ndd:teet>PT01H30M</ndd:teet>"
stage.ETD = #2025-03-07 23:05:00#: equal "ETD", stage.ETD, #2025-03-07 23:05:00#
contains "appendTo", written(stage), "<ndd:etd>2025-03-07T23:05:00Z</ndd:etd>"
stage.NumAircraft = 10: equal "NumAircraft", stage.NumAircraft, 10
stage.NumAircraft = 11: equal "NumAircraft", stage.NumAircraft, 10
stage.NumAircraft = 0: equal "NumAircraft", stage.NumAircraft, 10
stage.ADS = True: equal "ADS", stage.ADS, True
contains "appendTo", written(stage), "ads=""true"""

Dim route: Set route = create("ICAORoute")
route.Speed = " n0450 ": equal "Speed", route.Speed, "N0450"
route.Level = " f350 ": equal "Level", route.Level, "F350"
Dim segment: Set segment = create("ICAORouteSegment")
segment.NewSpeed = " m082 ": equal "NewSpeed", segment.NewSpeed, "M082"
segment.NewLevel = " f370 ": equal "NewLevel", segment.NewLevel, "F370"
segment.ATSRouteId = " h65 ": equal "ATSRouteId", segment.ATSRouteId, "H65"
segment.NewRules = " vfr ": equal "NewRules", segment.NewRules, "VFR"
segment.CCLevel = " f390 ": equal "CCLevel", segment.CCLevel, "F390"
isNothing "Waypoint", segment.Waypoint
segment.setLatLon -33.5, 151: isA "setLatLon", segment.Waypoint, "CoordinatePoint"
equal "setLatLon", segment.Waypoint.Lat, -33.5
segment.setBearingDistance "sy", 45, 25: equal "setBearingDistance", segment.Waypoint.toString(), "SY045025"
segment.setNamed " wol ": isA "setNamed", segment.Waypoint, "NamedPoint"
equal "appendTo", written(segment), "<ndd:ats-route>H65</ndd:ats-route><ndd:waypoint><ndd:loc>WOL</ndd:loc>" & _
  "</ndd:waypoint><ndd:new-speed>M082</ndd:new-speed><ndd:new-level>F370</ndd:new-level>" & _
  "<ndd:cc-level>F390</ndd:cc-level><ndd:new-rules>VFR</ndd:new-rules>"
Dim point: Set point = create("NamedPoint")
Set segment.Waypoint = point: same "Waypoint", segment.Waypoint, point
Set segment.Waypoint = Nothing: isNothing "Waypoint", segment.Waypoint
route.Add Nothing
equal "appendTo", written(route), "<ndd:speed>N0450</ndd:speed><ndd:level>F350</ndd:level>"
Dim i
For i = 1 To 60: route.Add segment: Next
equal "at most fifty segments", UBound(Split(written(route), "<ndd:segment>")), 50

Dim info: Set info = create("ICAOOtherInfo")
equal "appendTo", written(info), "<root/>"
info.EET = " a  1 ": equal "EET", info.EET, "A 1"
info.RIF = " a  2 ": equal "RIF", info.RIF, "A 2"
info.SEL = " a  3 ": equal "SEL", info.SEL, "A 3"
info.OPR = " a  4 ": equal "OPR", info.OPR, "A 4"
info.STS = " hosp  medevac ": equal "STS", info.STS, "HOSP MEDEVAC"
info.PER = " cat ": equal "PER", info.PER, "C"
info.COM = " a  5 ": equal "COM", info.COM, "A 5"
info.NAV = " a  6 ": equal "NAV", info.NAV, "A 6"
info.DAT = " a  7 ": equal "DAT", info.DAT, "A 7"
info.DEP = " a  8 ": equal "DEP", info.DEP, "A 8"
info.Dest = " a  9 ": equal "Dest", info.Dest, "A 9"
info.ALTN = " b  1 ": equal "ALTN", info.ALTN, "B 1"
info.RALT = " b  2 ": equal "RALT", info.RALT, "B 2"
info.Code = " b  3 ": equal "Code", info.Code, "B 3"
info.RMK = " b  4 ": equal "RMK", info.RMK, "B 4"
info.TYP = " b  5 ": equal "TYP", info.TYP, "B 5"
info.DLA = " b  6 ": equal "DLA", info.DLA, "B 6"
info.PBN = " a1b2 ": equal "PBN", info.PBN, "A1B2"
info.SUR = " b  7 ": equal "SUR", info.SUR, "B 7"
info.ORGN = " b  8 ": equal "ORGN", info.ORGN, "B 8"
info.TALT = " b  9 ": equal "TALT", info.TALT, "B 9"
startsWith "appendTo", written(info), "<ndd:eet>A 1</ndd:eet><ndd:rif>A 2</ndd:rif>"
Dim config: Set config = CreateObject("Brevank.NAIPSConfig")
config.NewFPLFormat = True
startsWith "appendTo in the new format", written(info), _
  "<ndd:sts>HOSP MEDEVAC</ndd:sts><ndd:pbn>A1 B2</ndd:pbn><ndd:nav>A 6</ndd:nav>"
config.NewFPLFormat = False

Dim pilot: Set pilot = create("PilotContactInfo")
pilot.Name = " dana  demo " & String(30, "x"): equal "Name", pilot.Name, "DANA DEMO XXXXXXXXXX"
pilot.Phone = " 0  1 " & String(30, "2"): equal "Phone", pilot.Phone, "0 1 222222222222222"

Dim sar: Set sar = create("SarTimeInfo")
equal "Time", sar.Time, #1970-01-01#
equal "appendTo", written(sar), "<ndd:sartimetban>TBA</ndd:sartimetban><ndd:ats-unit/><ndd:location/>"
sar.Time = #2026-11-16 02:23:00#: equal "Time", sar.Time, #2026-11-16 02:23:00#
sar.TBA = False: equal "TBA", sar.TBA, False
sar.ATSUnit = " c  1 ": equal "ATSUnit", sar.ATSUnit, "C 1"
sar.EndPoint = " c  2 ": equal "EndPoint", sar.EndPoint, "C 2"
sar.Location = " c  3 ": equal "Location", sar.Location, "C 3"
equal "appendTo", written(sar), "<ndd:sartime>2026-11-16T02:23:00Z</ndd:sartime><ndd:ats-unit>C 1</ndd:ats-unit>" & _
  "<ndd:endpoint>C 2</ndd:endpoint><ndd:location>C 3</ndd:location>"

Dim suppl: Set suppl = create("ICAOSupplInfo")
equal "flag(2)", suppl.flag(2), True
equal "flag(0)", suppl.flag(0), False
suppl.setFlag 2, False: equal "flag(2)", suppl.flag(2), False
suppl.setFlag 13, True: equal "flag(13)", suppl.flag(13), True
suppl.Endurance = 300: equal "Endurance", suppl.Endurance, 300
suppl.Endurance = -1: equal "Endurance", suppl.Endurance, 300
suppl.Endurance = 0: equal "Endurance", suppl.Endurance, 0
suppl.POBTBA = True: equal "POBTBA", suppl.POBTBA, True
suppl.POB = 4: equal "POB", suppl.POB, 4
suppl.POB = -4: equal "POB", suppl.POB, 4
suppl.DinghyCount = 99: equal "DinghyCount", suppl.DinghyCount, 99
suppl.DinghyCount = 100: equal "DinghyCount", suppl.DinghyCount, 99
suppl.DinghyCapacity = 999: equal "DinghyCapacity", suppl.DinghyCapacity, 999
suppl.DinghyCapacity = 1000: equal "DinghyCapacity", suppl.DinghyCapacity, 999
suppl.DinghyCovered = True: equal "DinghyCovered", suppl.DinghyCovered, True
suppl.DinghyColour = " bright  orange ": equal "DinghyColour", suppl.DinghyColour, "BRIGHT ORA"
suppl.AircraftColour = " white " & String(50, "x"): equal "AircraftColour", suppl.AircraftColour, "WHITE " & String(40, "X")
suppl.Remarks = String(150, "r"): equal "Remarks", suppl.Remarks, String(134, "R")
isA "Pilot", suppl.Pilot, "PilotContactInfo"
same "Pilot", suppl.Pilot, suppl.Pilot
suppl.Pilot.Name = "own": equal "Pilot", suppl.Pilot.Name, "OWN"
Set suppl.Pilot = pilot: same "Pilot", suppl.Pilot, pilot
contains "appendTo", written(suppl), "name=""DANA DEMO XXXXXXXXXX"""
contains "appendTo", written(suppl), "<ndd:pob>TBA</ndd:pob>"
Set suppl.Pilot = Nothing: isNothing "Pilot", suppl.Pilot
contains "appendTo", written(suppl), "<ndd:pilot/>"

subject = "ICAOFlightNotifStage"
isNothing "Route", stage.Route
Set stage.Route = route: same "Route", stage.Route, route
isNothing "OtherInfo", stage.OtherInfo
Set stage.OtherInfo = info: same "OtherInfo", stage.OtherInfo, info
isNothing "SARTime", stage.SARTime
Set stage.SARTime = sar: same "SARTime", stage.SARTime, sar
isNothing "SupplInfo", stage.SupplInfo
Set stage.SupplInfo = suppl: same "SupplInfo", stage.SupplInfo, suppl
contains "appendTo", written(stage), "<ndd:route><ndd:speed>N0450</ndd:speed>"
contains "appendTo", written(stage), "<ndd:other-info><ndd:eet>"
contains "appendTo", written(stage), "<ndd:sartimeinfo><ndd:sartime>"
contains "appendTo", written(stage), "<ndd:suppl-info><ndd:pob>"
Set stage.Route = Nothing: isNothing "Route", stage.Route

Dim plan: Set plan = create("ICAOFlightNotif")
equal "appendTo", written(plan), "<ndd:domestic>true</ndd:domestic>"
plan.Domestic = False: equal "Domestic", plan.Domestic, False
plan.Add Nothing
equal "appendTo", written(plan), "<ndd:domestic>false</ndd:domestic>"
plan.Add stage
plan.Add stage
contains "appendTo", written(plan), "number=""1"""
contains "appendTo", written(plan), "number=""2"""

Dim request: Set request = create("SubmitICAOFlightNotifRqs")
isA "Notification", request.Notification, "ICAOFlightNotif"
same "Notification", request.Notification, request.Notification
Set request.Notification = plan: same "Notification", request.Notification, plan
request.GroupId = " g ": equal "GroupId", request.GroupId, " g "
request.IgnoreTypeMismatch = True: equal "IgnoreTypeMismatch", request.IgnoreTypeMismatch, True
contains "appendTo", written(request), "ignore-atyp-reg=""true"""
contains "appendTo", written(request), "<ndd:flight-notif><ndd:domestic>false</ndd:domestic><ndd:stage "
contains "appendTo", written(request), "<ndd:group-id><ndd:group-name> g </ndd:group-name></ndd:group-id>"
Set request.Notification = Nothing: isNothing "Notification", request.Notification
contains "appendTo", written(request), "<ndd:flight-notif/>"

Dim leg: Set leg = create("SARTimeFlightNotifStage")
leg.AltDestination = " a  b ": equal "AltDestination", leg.AltDestination, "A B"
leg.Depart = " ysbk ": equal "Depart", leg.Depart, "YSBK"
leg.Destination = " ymor ": equal "Destination", leg.Destination, "YMOR"
leg.ETD = #2026-11-16 22:00:00#: equal "ETD", leg.ETD, #2026-11-16 22:00:00#
leg.Add "  "
leg.Add " ysbk  via "
equal "appendTo", written(leg), "<ndd:adep>YSBK</ndd:adep><ndd:etd>2026-11-16T22:00:00Z</ndd:etd>" & _
  "<ndd:ades>YMOR</ndd:ades><ndd:alt>A B</ndd:alt><ndd:waypoint>YSBK VIA</ndd:waypoint>"

Dim notice: Set notice = create("SARTimeFlightNotif")
notice.Aircraft = " ": equal "Aircraft", notice.Aircraft, ""
notice.Aircraft = " vh  abc ": equal "Aircraft", notice.Aircraft, "VH ABC"
notice.AircraftType = " c172 ": equal "AircraftType", notice.AircraftType, "C172"
notice.Remarks = " a  b ": equal "Remarks", notice.Remarks, "A B"
notice.Endurance = 240: equal "Endurance", notice.Endurance, 240
notice.Endurance = -1: equal "Endurance", notice.Endurance, 240
notice.POB = "about 12": equal "POB", notice.POB, "12"
notice.POB = "2+TBAN": equal "POB", notice.POB, "2 TBAN"
notice.POB = "none": equal "POB", notice.POB, ""
isA "Pilot", notice.Pilot, "PilotContactInfo"
Set notice.Pilot = pilot: same "Pilot", notice.Pilot, pilot
isA "SarTimeInfo", notice.SarTimeInfo, "SarTimeInfo"
Set notice.SarTimeInfo = sar: same "SarTimeInfo", notice.SarTimeInfo, sar
equal "flag(2)", notice.flag(2), True
notice.setFlag 0, True: equal "flag(0)", notice.flag(0), True
notice.Add Nothing
notice.Add leg
startsWith "appendTo", written(notice), "<ndd:acid>VH ABC</ndd:acid><ndd:atyp>C172</ndd:atyp><ndd:stage "
contains "appendTo", written(notice), "VHF=""true"""
contains "appendTo", written(notice), "<ndd:end>PT04H00M</ndd:end><ndd:pob/>"

Set request = create("SubmitSARTimeNotifRqs")
isA "Notification", request.Notification, "SARTimeFlightNotif"
Set request.Notification = notice: same "Notification", request.Notification, notice
request.GroupId = " g ": equal "GroupId", request.GroupId, " g "
contains "appendTo", written(request), "<ndd:flight-notif><ndd:acid>VH ABC</ndd:acid>"
Set request.Notification = Nothing
contains "appendTo", written(request), "<ndd:flight-notif/>"

Set request = create("ActiveFlightNotifDirRqs")
request.Aircraft = " vh  abc ": equal "Aircraft", request.Aircraft, "VH ABC"
request.GroupId = " g ": equal "GroupId", request.GroupId, " g "
contains "appendTo", written(request), "<ndd:group-id><ndd:group-name> g </ndd:group-name></ndd:group-id>" & _
  "<ndd:acid>VH ABC</ndd:acid>"
Dim details: Set details = create("ActiveFlightNotifDetails")
details.OwnerId = " o ": equal "OwnerId", details.OwnerId, " o "
details.Route = " r ": equal "Route", details.Route, " r "
details.Aircraft = " a ": equal "Aircraft", details.Aircraft, " a "
details.DTG = #2026-11-16 02:23:00#: equal "DTG", details.DTG, #2026-11-16 02:23:00#
details.GroupId = " g ": equal "GroupId", details.GroupId, " g "
details.Id = " i ": equal "Id", details.Id, " i "

' Parts live as long as something holds them.
Set plan = create("ICAOFlightNotif")
plan.Add create("ICAOFlightNotifStage")
Set request = create("SubmitICAOFlightNotifRqs")
Set request.Notification = plan
Set plan = Nothing
contains "a plan that only its request holds", written(request), "number=""1"""
finish
