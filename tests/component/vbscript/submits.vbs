' Every operation, at the simulated service, through WinINet as it is set up for the user.
' The address without the end mark that Wine leaves in it.
Dim address: address = CreateObject("WScript.Shell").ExpandEnvironmentStrings("%NAIPS_SIMULATOR%")
address = Replace(address, Chr(0), "")
Dim config: Set config = create("NAIPSConfig")
config.Mode = 1
config.UseProxy = True
config.UserName = "demo"
config.Password = "demo-pilot"

' The request that the service read last.
Function lastRequest()
  Dim http: Set http = CreateObject("WinHttp.WinHttpRequest.5.1")
  http.Open "GET", "http://" & address & "/control/last", False
  http.Send
  lastRequest = http.ResponseText
End Function

' Submits a request and sees that its element was sent and its answer is a success.
Function submitted(request, responseClass)
  Set submitted = request.submit()
  isA "submit", submitted, responseClass
  equal "Error", submitted.Error, False
  equal "ErrorText", submitted.ErrorText, ""
  contains "the request", lastRequest(), "<ndd:" & request.abstractReq.ElementName & " "
  contains "the request", lastRequest(), "requestor=""DEMO"""
  equal "Payload", submitted.Payload.getAttribute("status"), "SUCCESS"
  equal "Payload", submitted.ResponseDoc.selectSingleNode("//soap:Body/*").nodeName, submitted.Payload.nodeName
End Function

Sub isFile(path)
  Dim files: Set files = CreateObject("Scripting.FileSystemObject")
  isTrue "the file " & path, files.FileExists(path)
End Sub

Dim request, reply, item, i, number, key, chart

Set request = create("AuthenticateRqs")
Set reply = submitted(request, "AuthenticateRsp")
equal "Name", reply.Name, "Dana Demo"
startsWith "MOTD", reply.MOTD, "This is the simulated service."
equal "Email", reply.Email, "demo@pilot.example"
equal "Scheduling", reply.Scheduling, True
equal "AvfaxId", reply.AvfaxId, "4711"
equal "Payload of one's own", reply.Payload.selectSingleNode("naips:name").text, "Dana Demo"
isTrue "each answer is another object", Not (request.submit() Is reply)

request.abstractReq.User = "demo"
request.abstractReq.Password = "wrong"
Set reply = request.submit()
equal "Error", reply.Error, True
startsWith "ErrorText", reply.ErrorText, "NAIPS Error: FAILURE" & vbCrLf & "Info: "
contains "ErrorText", reply.ErrorText, vbCrLf & vbCrLf & "+-+-+-+" & vbCrLf & _
  "In response to request:" & vbCrLf & vbCrLf & "<SOAP-ENV:Envelope"
equal "Name", reply.Name, ""
equal "Outcome", reply.Outcome, "refused"
equal "ErrorCode", reply.ErrorCode, 0
startsWith "ErrorText", reply.ErrorText, reply.Reason & vbCrLf & vbCrLf & "+-+-+-+"
contains "SentDocument", reply.SentDocument, "requestor=""DEMO"" password=""********"""

Set request = create("ChangePasswordRqs")
request.NewPassword = "demo-pilot"
request.Email = "new@pilot.example"
submitted request, "ChangePasswordRsp"
equal "the new address", create("AuthenticateRqs").submit().Email, "new@pilot.example"

Set reply = submitted(create("GetGroupAffiliationRqs"), "GetGroupAffiliationRsp")
equal "Count", reply.Count, 2
equal "Item(1).Name", reply.Item(1).Name, "CLUB"
equal "Item(1).Manager", reply.Item(1).Manager, True
equal "Item(2).Name", reply.Item(2).Name, "RESCUE"
equal "Item(2).Manager", reply.Item(2).Manager, False

Set request = create("AreaBriefingRqs")
request.addArea "20"
request.setFlag 0, True
request.setFlag 3, True
request.briefingReq.Duration = 6
Set reply = submitted(request, "BriefingResponse")
contains "the request", lastRequest(), "<ndd:duration>PT06H</ndd:duration>"
isTrue "Count", reply.Count >= 2
i = 0
For Each item In reply.Images
  i = i + 1
  equal "ProductType", item.ProductType, "PNG"
  isFile item.File
Next
equal "For Each", i, reply.Count
same "Item", reply.Images.Item(1), reply.Item(1)

Set request = create("LocationBriefingRqs")
request.addLocation "YSSY"
request.setFlag 0, True
request.briefingReq.From = #2026-11-20 06:00:00#
request.briefingReq.Till = #2026-11-20 18:00:00#
Set reply = submitted(request, "BriefingResponse")
contains "Content", reply.Content, "TAF YSSY"
contains "the request", lastRequest(), "<ndd:from>2026-11-20T06:00:00Z</ndd:from>"

Set request = create("MetBriefingRqs")
request.addLocation "YSSY"
request.setFlag 2, True
contains "Content", submitted(request, "BriefingResponse").Content, "METAR YSSY"

subject = "BriefingRequest"
Set reply = create("BriefingRequest").submit()
isA "submit", reply, "BriefingResponse"
equal "Error: it is only a part of a request", reply.Error, True

Set request = create("FirstLastLightRqs")
request.ForDate = #2026-11-20#
request.setNamed "YSSY"
Set reply = submitted(request, "FirstLastLightRsp")
equal "ForDate", reply.ForDate, "2026-11-20"
startsWith "FirstLight", reply.FirstLight, "2026-11-"
startsWith "LastLight", reply.LastLight, "2026-11-"

Set request = create("RAIMRqs")
request.addLocation "YSSY"
contains "Content", submitted(request, "BriefingResponse").Content, "YSSY"

Set reply = submitted(create("ActiveSPFIBDirectoryRqs"), "ActiveSPFIBDirectoryRsp")
isTrue "Count", reply.Count >= 1
equal "Item(1).Aircraft", reply.Item(1).Aircraft, "VHNSM"
equal "Item(1).DTG", reply.Item(1).DTG, #2026-11-20 06:00:00#
number = reply.Item(1).Number

Set request = create("GetSPFIBRqs")
request.Number = number
Set reply = submitted(request, "GetSPFIBRsp")
equal "Duration", reply.Duration, "PT24H"
equal "SPFIBSpec.TAS", reply.SPFIBSpec.TAS, "N0440"
equal "SPFIBSpec.Item(1).Departing", reply.SPFIBSpec.Item(1).Departing, "YSSY"
equal "SPFIBSpec.Item(1).Destination", reply.SPFIBSpec.Item(1).Destination, "YMML"
equal "SPFIBSpec.Item(1).ETD", reply.SPFIBSpec.Item(1).ETD, #2026-11-20 08:00:00#

Set request = create("UpdateSPFIBRqs")
request.SPFIBNumber = number
request.Duration = 12
contains "Content", submitted(request, "BriefingResponse").Content, "YSSY"

Set request = create("ViewNOTAMListForSPFIBRqs")
request.SPFIBNo = number
Set reply = submitted(request, "ViewNOTAMListForSPFIBRsp")
equal "SPFIBNumber", reply.SPFIBNumber, number
isTrue "Count", reply.Count >= 1
key = reply.Item(1).NotamKey
contains "Item(1).NotamId", reply.Item(1).NotamId, "/"
isTrue "Item(1).Summary", Len(reply.Item(1).Summary) > 0

Set request = create("RetrieveFullTextNotamRqs")
request.addKey key
isTrue "Content", Len(submitted(request, "BriefingResponse").Content) > 0

Dim stage: Set stage = create("SPFIBStageSpec")
stage.Departing = "YSSY"
stage.Destination = "YMML"
stage.ETD = #2026-11-20 22:00:00#
stage.Level = "F350"
Set stage.Route = create("SPFIBRoute")
stage.Route.addNamed "WOL"
stage.Route.addLatLon -35.3, 149.2
Dim spec: Set spec = create("SPFIBSpec")
spec.Aircraft = "VHABC"
spec.setFlag 3, True
spec.addStage stage
Set request = create("SPFIBRqs")
request.Duration = 6
Set request.SPFIBSpec = spec
Set reply = submitted(request, "BriefingResponse")
contains "Content", reply.Content, "YMML"
contains "the request", lastRequest(), "<ndd:lat>-35.300000</ndd:lat><ndd:long>149.200000</ndd:long>"

Set stage = create("WindTempStage")
stage.Depart = "YSSY"
stage.Destination = "YMML"
stage.ETD = #2026-11-20 22:00:00#
Set request = create("WindTempProfileRqs")
request.TAS = "N0440"
request.addStage stage
contains "Content", submitted(request, "BriefingResponse").Content, "YMML"

Set reply = submitted(create("GeneralMETMessageDirRqs"), "GeneralMETMessageDirRsp")
isTrue "Count", reply.Count >= 2
equal "Name(1)", reply.Name(1), "NATIONAL WEATHER SUMMARY"
equal "EntryType(1)", reply.EntryType(1), "SUMMARY"
Set request = create("GetGeneralMETMessageRqs")
request.Name = reply.Name(1)
request.MessageType = reply.EntryType(1)
startsWith "Content", submitted(request, "BriefingResponse").Content, "NATIONAL WEATHER SUMMARY"

Set request = create("RouteDirectoryRqs")
request.Depart = "yssy"
request.Destination = "ymml"
Set reply = submitted(request, "RouteDirectoryRsp")
contains "the request", lastRequest(), "scope=""domestic"""
isTrue "Count", reply.Count >= 2
equal "Item(1).RouteCode", reply.Item(1).RouteCode, "A1"
Set request = create("GetRouteRqs")
request.Depart = "yssy"
request.Code = "a1"
request.Destination = "ymml"
Set reply = submitted(request, "AbstractResponse")
contains "Payload", reply.Payload.selectSingleNode("naips:route/naips:route-text").text, "WOL"

Set request = create("LocAirspaceDirectoryRqs")
request.PartialName = " syd "
Set reply = submitted(request, "LocAirspaceDirectoryRsp")
isTrue "Count", reply.Count >= 1
contains "Item(1).Name", reply.Item(1).Name, "SYD"
isA "Item(1).Coord", reply.Item(1).Coord, "CoordinatePoint"

Dim route: Set route = create("ICAORoute")
Dim segment: Set segment = create("ICAORouteSegment")
segment.ATSRouteId = "H65"
segment.setNamed "RAZZI"
route.Add segment
Dim flight: Set flight = create("ICAOFlightNotifStage")
flight.Aircraft = "VHABC"
flight.FlightRules = "I"
flight.AircraftType = "B738"
flight.WTC = "M"
flight.Depart = "YSSY"
flight.Destination = "YMML"
flight.TEET = 75
flight.ETD = #2026-11-20 22:00:00#
Set flight.Route = route
Set flight.OtherInfo = create("ICAOOtherInfo")
flight.OtherInfo.RMK = "component test"
Set flight.SARTime = create("SarTimeInfo")
Set flight.SupplInfo = create("ICAOSupplInfo")
flight.SupplInfo.Pilot.Name = "Dana"
Set request = create("SubmitICAOFlightNotifRqs")
request.Notification.Add flight
request.IgnoreTypeMismatch = True
Set reply = submitted(request, "SubmitICAOFlightNotifRsp")
equal "Count", reply.Count, 1
contains "Item(1)", reply.Item(1), "VHABC"
contains "the request", lastRequest(), "ignore-atyp-reg=""true"""

Dim leg: Set leg = create("SARTimeFlightNotifStage")
leg.Depart = "YSBK"
leg.Destination = "YMOR"
leg.ETD = #2026-11-20 22:00:00#
leg.Add "YWVA"
Set request = create("SubmitSARTimeNotifRqs")
request.Notification.Aircraft = "VHDEF"
request.Notification.AircraftType = "C172"
request.Notification.POB = "4"
request.Notification.Add leg
contains "NotifText", submitted(request, "SubmitSARTimeNotifRsp").NotifText, "VHDEF"

Set request = create("ActiveFlightNotifDirRqs")
request.Aircraft = "vhdef"
Set reply = submitted(request, "ActiveFlightNotifDirRsp")
equal "Count", reply.Count, 1
equal "Item(1).Aircraft", reply.Item(1).Aircraft, "VHDEF"
equal "Item(1).OwnerId", reply.Item(1).OwnerId, "DEMO"
equal "Item(1).DTG", reply.Item(1).DTG, #2026-11-20 06:00:00#
contains "Item(1).Route", reply.Item(1).Route, "YWVA"

Set reply = submitted(create("ChartDirectoryRqs"), "ChartDirectoryRsp")
isTrue "Count", reply.Count >= 2
equal "Item(1).Key", reply.Item(1).Key, "80001"
equal "Item(1).StoreTime", reply.Item(1).StoreTime, #2026-11-20 06:00:00#
Set request = create("GetChartRqs")
request.Key = reply.Item(1).Key
request.Resolution = "LO"
Set reply = submitted(request, "GetChartRsp")
equal "Count", reply.Count, 1
equal "ChartDescriptor.Name", reply.ChartDescriptor.Name, "MSLP ANALYSIS"
equal "Item(1).ProductType", reply.Item(1).ProductType, "PNG"
equal "Item(1).Resolution", reply.Item(1).Resolution, "LO"
isFile reply.Item(1).FilePath

' What stands in the way of an answer.
config.Mode = 2
Set reply = create("AuthenticateRqs").submit()
equal "Error of a host that there is not", reply.Error, True
startsWith "ErrorText of a host that there is not", reply.ErrorText, _
  "SOAP Fault: Unrecognised response.  Details below." & vbCrLf
' WinINet gives what the proxy says, which does not connect, as an answer of the service.
equal "Outcome behind a proxy that does not connect", reply.Outcome, "unreadable"
equal "ErrorCode behind a proxy that does not connect", reply.ErrorCode, 0
equal "Outcome of a filing behind a proxy that does not connect", _
  create("SubmitSARTimeNotifRqs").submit().Outcome, "in-doubt"
finish
