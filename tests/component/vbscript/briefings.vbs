' Requests for briefings, light, RAIM, NOTAMs and charts.
Sub flagsAreABitSet(request)
  isTrue "flag(0)", Not request.flag(0)
  equal "flag is a Boolean", request.flag(0), False
  request.setFlag 6, True: equal "flag(6)", request.flag(6), True
  request.setFlag 30, True: equal "flag(30)", request.flag(30), True
  request.setFlag 6, False: equal "flag(6)", request.flag(6), False
  equal "flag(30)", request.flag(30), True
  request.setFlag 30, False
  request.setFlag -1, True: equal "flag(-1)", request.flag(-1), False
  On Error Resume Next
  request.setFlag 31, True
  raised "setFlag(31)", 6, "Overflow"
  Dim on31: on31 = request.flag(31)
  raised "flag(31)", 6, "Overflow"
  On Error Goto 0
End Sub

Dim request, text, i
Set request = create("AreaBriefingRqs")
flagsAreABitSet request
text = written(request)
contains "appendTo", text, "<ndd:area-brief-rqs"
For Each i In Array("met=""false""", "ntm=""false""", "hon=""false""", "charts=""false""", _
                    "mid-sigwx-gpwt=""false""", "variant=""LO""")
  contains "appendTo", text, i
Next
For i = 0 To 5: request.setFlag i, True: Next
For i = 1 To 6: request.addArea " " & i: Next
text = written(request)
contains "appendTo", text, "<ndd:area> 1</ndd:area><ndd:area> 2</ndd:area>"
contains "appendTo", text, "<ndd:area> 5</ndd:area>"
isTrue "a sixth area is dropped", InStr(text, "<ndd:area> 6") = 0
For Each i In Array("met=""true""", "ntm=""true""", "hon=""true""", "charts=""true""", _
                    "mid-sigwx-gpwt=""true""", "variant=""HI""")
  contains "appendTo", text, i
Next
request.clearAreas
isTrue "clearAreas", InStr(written(request), "<ndd:area>") = 0
equal "flags outlive clearAreas", request.flag(5), True

Set request = create("LocationBriefingRqs")
flagsAreABitSet request
For i = 1 To 13: request.addLocation "l" & i: Next
request.setFlag 3, True
text = written(request)
contains "appendTo", text, "<ndd:loc-brief-rqs"
contains "appendTo", text, "<ndd:loc>l1</ndd:loc>"
contains "appendTo", text, "<ndd:loc>l12</ndd:loc>"
isTrue "a thirteenth location is dropped", InStr(text, "l13") = 0
contains "appendTo", text, "sigmet=""true"""
request.clearLocations
isTrue "clearLocations", InStr(written(request), "<ndd:loc>") = 0

Set request = create("MetBriefingRqs")
flagsAreABitSet request
For i = 1 To 5: request.addLocation "l" & i: Next
request.setFlag 6, True
contains "appendTo", written(request), "<ndd:loc>l4</ndd:loc><ndd:types/></ndd:met-brief-rqs>"
For i = 0 To 8: request.setFlag i, True: Next
text = ""
For Each i In Array("TAF", "TTF", "METAR", "SPECI", "AQNH", "SIGMET", "AIRMET", "ATIS")
  text = text & "<ndd:message-type>" & i & "</ndd:message-type>"
Next
contains "appendTo", written(request), "<ndd:types>" & text & "</ndd:types>"
request.clearLocations
isTrue "clearLocations", InStr(written(request), "<ndd:loc>") = 0
request.briefingReq.Duration = 9
contains "appendTo", written(request), "<ndd:duration>PT09H</ndd:duration>"

Set request = create("FirstLastLightRqs")
Dim point: Set point = create("NamedPoint")
point.Name = "ysbk"
request.ForDate = #2026-11-16 02:23:00#
equal "ForDate", request.ForDate, #2026-11-16 02:23:00#
contains "appendTo", written(request), "<ndd:date>2026-11-16</ndd:date><ndd:point/>"
Set request.Point = point
same "Point", request.Point, point
contains "appendTo", written(request), "<ndd:point><ndd:loc>YSBK</ndd:loc></ndd:point>"
request.setNamed "sy045025"
isA "setNamed", request.Point, "BearingDistPoint"
same "setNamed", request.Point, request.Point
request.setLatLon -33.5, 151
isA "setLatLon", request.Point, "CoordinatePoint"
equal "setLatLon", request.Point.Lat, -33.5
equal "setLatLon", request.Point.Lon, 151
request.setBearingDistance " ml ", 359, 999
isA "setBearingDistance", request.Point, "BearingDistPoint"
equal "setBearingDistance", request.Point.Name, "ML"
equal "setBearingDistance", request.Point.Bearing, 359
equal "setBearingDistance", request.Point.Distance, 999
Set request.Point = Nothing
isNothing "Point", request.Point
contains "appendTo", written(request), "<ndd:point/>"

Set request = create("RAIMRqs")
request.addLocation "  "
request.addLocation " yssy "
For i = 1 To 20: request.addLocation "l" & i: Next
text = written(request)
contains "appendTo", text, "<ndd:loc>YSSY</ndd:loc><ndd:loc>L1</ndd:loc>"
contains "appendTo", text, "<ndd:loc>L19</ndd:loc></ndd:raim-rqs>"

Set request = create("ViewNOTAMListForSPFIBRqs")
contains "appendTo", written(request), "<ndd:number/>"
request.SPFIBNo = " s1 ": equal "SPFIBNo", request.SPFIBNo, " s1 "
contains "appendTo", written(request), "<ndd:number> s1 </ndd:number>"

Set request = create("RetrieveFullTextNotamRqs")
equal "Count", request.Count, 0
request.addKey "  ": equal "Count", request.Count, 0
request.addKey " c1 ": request.addKey "c2": equal "Count", request.Count, 2
contains "appendTo", written(request), "<ndd:notamKey>C1</ndd:notamKey><ndd:notamKey>C2</ndd:notamKey>"

Set request = create("GetChartRqs")
contains "appendTo", written(request), "<ndd:key/></ndd:get-chart-rqs>"
request.Key = " 80001 ": equal "Key", request.Key, " 80001 "
request.Resolution = " hi ": equal "Resolution", request.Resolution, " hi "
request.Resolution = "MED": equal "Resolution", request.Resolution, " hi "
contains "appendTo", written(request), "<ndd:key> 80001 </ndd:key><ndd:variant> hi </ndd:variant>"
request.Resolution = "lo": equal "Resolution", request.Resolution, "lo"
request.Resolution = "": equal "Resolution", request.Resolution, ""
Set request = create("ChartDirectoryRqs")
contains "appendTo", written(request), "<ndd:chart-dir-rqs"

Dim item: Set item = create("BriefItem")
item.Product = " p ": equal "Product", item.Product, " p "
item.File = " f ": equal "File", item.File, " f "
item.ProductType = " t ": equal "ProductType", item.ProductType, " t "
Set item = create("Product")
item.ProductType = " t ": equal "ProductType", item.ProductType, " t "
item.Resolution = " r ": equal "Resolution", item.Resolution, " r "
item.FilePath = " f ": equal "FilePath", item.FilePath, " f "
Set item = create("NotamBaseDescriptor")
item.NotamKey = " k ": equal "NotamKey", item.NotamKey, " k "
item.NotamId = " i ": equal "NotamId", item.NotamId, " i "
item.Location = " l ": equal "Location", item.Location, " l "
item.Summary = " s ": equal "Summary", item.Summary, " s "
Set item = create("ChartDescriptor")
item.StoreTime = #2026-11-16 02:23:00#: equal "StoreTime", item.StoreTime, #2026-11-16 02:23:00#
item.Name = " n ": equal "Name", item.Name, " n "
item.Key = " k ": equal "Key", item.Key, " k "
item.LowRes = True: equal "LowRes", item.LowRes, True
item.HighRes = True: equal "HighRes", item.HighRes, True
item.PDF = True: equal "PDF", item.PDF, True
item.ProductType = " t ": equal "ProductType", item.ProductType, " t "
finish
