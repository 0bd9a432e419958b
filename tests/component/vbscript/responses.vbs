' Responses: unanswered, and with an answer that the host gives them.
Function response(className)
  Set response = create(className)
  equal "Error", response.Error, True
  equal "ErrorText", response.ErrorText, "No response set"
  isNothing "Payload", response.Payload
  isNothing "ResponseDoc", response.ResponseDoc
  equal "Outcome", response.Outcome, "not-sent"
  equal "ErrorCode", response.ErrorCode, 0
  equal "Reason", response.Reason, "No response set"
  equal "SentDocument", response.SentDocument, ""
  response.Error = False: equal "Error", response.Error, False
  response.ErrorText = " text ": equal "ErrorText", response.ErrorText, " text "

  Dim refusal: Set refusal = answer("FAILURE", "<n:info>No such thing</n:info>")
  Set response.ResponseDoc = refusal
  same "ResponseDoc", response.ResponseDoc, refusal
  equal "Payload", response.Payload.xml, refusal.documentElement.firstChild.firstChild.xml
  equal "Error of a refusal", response.Error, True
  equal "ErrorText of a refusal", response.ErrorText, _
    "NAIPS Error: FAILURE" & vbCrLf & "Info: No such thing" & vbCrLf
  equal "Outcome of a refusal", response.Outcome, "refused"
  equal "Reason of a refusal", response.Reason, response.ErrorText

  Dim node: Set node = refusal.documentElement
  Set response.Payload = node: same "Payload", response.Payload, node
  Set response.Payload = Nothing: isNothing "Payload", response.Payload
End Function

Sub load(reply, children)
  Set reply.ResponseDoc = answer("SUCCESS", children)
  equal "Error", reply.Error, False
  equal "ErrorText", reply.ErrorText, ""
  equal "Outcome", reply.Outcome, "success"
  ' The prefixes are bound for a host that goes on by itself.
  equal "Payload", reply.Payload.selectSingleNode("@status").text, "SUCCESS"
  equal "ResponseDoc", reply.ResponseDoc.selectSingleNode("//soap:Body/naips:answer").xml, reply.Payload.xml
End Sub

Dim reply, item, i, extra
Set reply = response("AuthenticateRsp")
load reply, "<n:name>Dana</n:name><n:motd>Hi</n:motd><n:email>d@e</n:email>" & _
  "<n:scheduling>true</n:scheduling><n:avfax-id>4711</n:avfax-id>"
equal "Name", reply.Name, "Dana"
equal "MOTD", reply.MOTD, "Hi"
equal "Email", reply.Email, "d@e"
equal "Scheduling", reply.Scheduling, True
equal "AvfaxId", reply.AvfaxId, "4711"

Set reply = response("ChangePasswordRsp")
load reply, ""

Set reply = response("GetGroupAffiliationRsp")
load reply, "<n:group manager='true'><n:group-name>CLUB</n:group-name></n:group>" & _
  "<n:group manager='TRUE'/>"
equal "Count", reply.Count, 2
equal "Item(1).Name", reply.Item(1).Name, "CLUB"
equal "Item(1).Manager", reply.Item(1).Manager, True
equal "Item(2).Manager", reply.Item(2).Manager, False
same "Item", reply.Item(1), reply.Item(1)
isNothing "Item(0)", reply.Item(0)
isNothing "Item(3)", reply.Item(3)
isNothing "Item(-1)", reply.Item(-1)
Set extra = create("GroupMemberInfo")
reply.Add extra: equal "Count", reply.Count, 3
same "Item", reply.Item(3), extra
reply.Add Nothing: equal "Add of nothing", reply.Count, 3

Set reply = response("BriefingResponse")
equal "Count", reply.Count, 0
For Each item In reply.Images
  isTrue "For Each of no images", False
Next
' "QUJD" is the text ABC.
load reply, "<n:content>TAF YSSY</n:content><n:product type='GIF'><n:content>QUJD</n:content></n:product>" & _
  "<n:product/>"
equal "Content", reply.Content, "TAF YSSY"
equal "Product", reply.Product, ""
equal "Count", reply.Count, 2
equal "Item(1).ProductType", reply.Item(1).ProductType, "PNG"
contains "Item(1).File", reply.Item(1).File, "\VelmoraSoftware\NAIPS"
equal "Item(2).File", reply.Item(2).File, ""
isNothing "Item(0)", reply.Item(0)
isNothing "Item(3)", reply.Item(3)
equal "Images.Count", reply.Images.Count, 2
same "Images.Item", reply.Images.Item(2), reply.Item(2)
i = 0
For Each item In reply.Images
  i = i + 1
  same "For Each", item, reply.Item(i)
Next
equal "For Each", i, 2
Dim files: Set files = CreateObject("Scripting.FileSystemObject")
subject = "BriefingResponse"
equal "the file's content", files.OpenTextFile(reply.Item(1).File).ReadAll, "ABC"
files.DeleteFile reply.Item(1).File
Dim images: Set images = reply.Images
Set reply = Nothing
i = 0
For Each item In images
  i = i + 1
Next
equal "Images of a response let go", i, 2

Set reply = response("FirstLastLightRsp")
load reply, "<n:date>2026-11-16</n:date><n:first>1912</n:first><n:last>0901</n:last>"
equal "ForDate", reply.ForDate, "2026-11-16"
equal "FirstLight", reply.FirstLight, "1912"
equal "LastLight", reply.LastLight, "0901"

Set reply = response("ViewNOTAMListForSPFIBRsp")
load reply, "<n:spfib>S1</n:spfib><n:notam><n:notamKey>k</n:notamKey><n:notamId><n:loc><n:id>YSSY</n:id></n:loc>" & _
  "<n:number><n:series-id>C</n:series-id><n:number>1234</n:number><n:year>7</n:year></n:number></n:notamId>" & _
  "<n:summary>RWY CLSD</n:summary></n:notam>"
equal "SPFIBNumber", reply.SPFIBNumber, "S1"
equal "Count", reply.Count, 1
equal "Item(1).NotamKey", reply.Item(1).NotamKey, "k"
equal "Item(1).NotamId", reply.Item(1).NotamId, "C1234/07"
equal "Item(1).Location", reply.Item(1).Location, "YSSY"
equal "Item(1).Summary", reply.Item(1).Summary, "RWY CLSD"
isNothing "Item(2)", reply.Item(2)

Set reply = response("ChartDirectoryRsp")
load reply, "<n:chart key='80001'><n:name>MSLP</n:name><n:store-time>2026-11-16T02:23:00Z</n:store-time>" & _
  "<n:type>T</n:type><n:variant/></n:chart>"
equal "Count", reply.Count, 1
equal "Item(1).Key", reply.Item(1).Key, "80001"
equal "Item(1).Name", reply.Item(1).Name, "MSLP"
equal "Item(1).StoreTime", reply.Item(1).StoreTime, #2026-11-16 02:23:00#
equal "Item(1).ProductType", reply.Item(1).ProductType, "T"
equal "Item(1).LowRes", reply.Item(1).LowRes, True
equal "Item(1).HighRes", reply.Item(1).HighRes, True
equal "Item(1).PDF", reply.Item(1).PDF, False
Set extra = create("ChartDescriptor")
reply.Add extra: same "Add", reply.Item(2), extra

Set reply = create("GetChartRsp")
isNothing "ChartDescriptor", reply.ChartDescriptor
load reply, "<n:desc key='80001'><n:name>MSLP</n:name><n:res><n:product-res>HI</n:product-res></n:res></n:desc>" & _
  "<n:content type='PNG' res='HI'><n:content>QUJD</n:content></n:content>"
equal "Count", reply.Count, 1
equal "ChartDescriptor.Key", reply.ChartDescriptor.Key, "80001"
same "ChartDescriptor", reply.ChartDescriptor, reply.ChartDescriptor
equal "ChartDescriptor.HighRes", reply.ChartDescriptor.HighRes, True
equal "ChartDescriptor.LowRes", reply.ChartDescriptor.LowRes, False
equal "Item(1).ProductType", reply.Item(1).ProductType, "PNG"
equal "Item(1).Resolution", reply.Item(1).Resolution, "HI"
equal "the file's content", files.OpenTextFile(reply.Item(1).FilePath).ReadAll, "ABC"
isNothing "Item(0)", reply.Item(0)

Set reply = response("GetSPFIBRsp")
isNothing "SPFIBSpec", reply.SPFIBSpec
load reply, "<n:duration>PT6H</n:duration><n:spfib><n:stage><n:adep><n:loc>YSSY</n:loc></n:adep>" & _
  "<n:etd>2026-11-16T02:23:00Z</n:etd><n:ades><n:loc>YMML</n:loc></n:ades></n:stage><n:tas>N0440</n:tas></n:spfib>"
equal "Duration", reply.Duration, "PT6H"
same "SPFIBSpec", reply.SPFIBSpec, reply.SPFIBSpec
equal "SPFIBSpec.TAS", reply.SPFIBSpec.TAS, "N0440"
equal "SPFIBSpec.Count", reply.SPFIBSpec.Count, 1
equal "SPFIBSpec.Item(1).Departing", reply.SPFIBSpec.Item(1).Departing, "YSSY"
equal "SPFIBSpec.Item(1).Destination", reply.SPFIBSpec.Item(1).Destination, "YMML"
equal "SPFIBSpec.Item(1).ETD", reply.SPFIBSpec.Item(1).ETD, #2026-11-16 02:23:00#

Set reply = response("ActiveSPFIBDirectoryRsp")
load reply, "<n:spfib><n:number>S1</n:number><n:acid>VHABC</n:acid><n:dtg>2026-11-16T02:23:00Z</n:dtg></n:spfib>" & _
  "<n:spfib/>"
equal "Count", reply.Count, 2
equal "Item(1).Number", reply.Item(1).Number, "S1"
equal "Item(1).Aircraft", reply.Item(1).Aircraft, "VHABC"
equal "Item(1).DTG", reply.Item(1).DTG, #2026-11-16 02:23:00#
equal "Item(2).DTG", reply.Item(2).DTG, CDate(0)
Set extra = create("SPFIBDescriptor")
reply.Add extra: same "Add", reply.Item(3), extra
reply.Add Nothing: equal "Add of nothing", reply.Count, 3

Set reply = response("RouteDirectoryRsp")
load reply, "<n:route><n:adep>YSSY</n:adep><n:ades>YMML</n:ades><n:code>A1</n:code>" & _
  "<n:description>Jet</n:description></n:route>"
equal "Count", reply.Count, 1
equal "Item(1).Depart", reply.Item(1).Depart, "YSSY"
equal "Item(1).Destination", reply.Item(1).Destination, "YMML"
equal "Item(1).RouteCode", reply.Item(1).RouteCode, "A1"
equal "Item(1).Description", reply.Item(1).Description, "Jet"
Set extra = create("RouteSummary")
reply.Add extra: same "Add", reply.Item(2), extra
reply.Add Nothing: equal "Add of nothing", reply.Count, 2

Set reply = response("LocAirspaceDirectoryRsp")
load reply, "<n:loc-airspace><n:key>k</n:key><n:name>SYDNEY</n:name><n:coord><n:lat>-33.95</n:lat>" & _
  "<n:long>151.18</n:long></n:coord><n:description>d</n:description></n:loc-airspace><n:loc-airspace/>"
equal "Count", reply.Count, 2
equal "Item(1).Key", reply.Item(1).Key, "k"
equal "Item(1).Name", reply.Item(1).Name, "SYDNEY"
equal "Item(1).Description", reply.Item(1).Description, "d"
equal "Item(1).Coord", reply.Item(1).Coord.toString(), "3357S15111E"
same "Item(1).Coord", reply.Item(1).Coord, reply.Item(1).Coord
isNothing "Item(2).Coord", reply.Item(2).Coord
Set extra = create("LocAirspaceDetails")
reply.Add extra: same "Add", reply.Item(3), extra
reply.Add Nothing: equal "Add of nothing", reply.Count, 3

Set reply = response("GeneralMETMessageDirRsp")
load reply, "<n:msg><n:name>OUTLOOK</n:name><n:type>VAA</n:type></n:msg><n:msg><n:name>no type</n:name></n:msg>"
equal "Count", reply.Count, 1
equal "Name", reply.Name(1), "OUTLOOK"
equal "EntryType", reply.EntryType(1), "VAA"
equal "Name(0)", reply.Name(0), ""
equal "Name(2)", reply.Name(2), ""
equal "EntryType(0)", reply.EntryType(0), ""

Set reply = response("SubmitICAOFlightNotifRsp")
load reply, "<n:fpl-text>one</n:fpl-text><n:fpl-text>two</n:fpl-text>"
equal "Count", reply.Count, 2
equal "Item(2)", reply.Item(2), "two"
equal "Item(0)", reply.Item(0), ""
equal "Item(3)", reply.Item(3), ""

Set reply = response("SubmitSARTimeNotifRsp")
equal "NotifText", reply.NotifText, ""
load reply, "<n:notif-text>filed</n:notif-text>"
equal "NotifText", reply.NotifText, "filed"

Set reply = response("ActiveFlightNotifDirRsp")
load reply, "<n:flight-notif><n:id>i</n:id><n:owner-id>o</n:owner-id><n:group-id>g</n:group-id>" & _
  "<n:timestamp>2026-11-16T02:23:00Z</n:timestamp><n:acid>VHABC</n:acid><n:route>r</n:route></n:flight-notif>"
equal "Count", reply.Count, 1
equal "Item(1).Id", reply.Item(1).Id, "i"
equal "Item(1).OwnerId", reply.Item(1).OwnerId, "o"
equal "Item(1).GroupId", reply.Item(1).GroupId, "g"
equal "Item(1).DTG", reply.Item(1).DTG, #2026-11-16 02:23:00#
equal "Item(1).Aircraft", reply.Item(1).Aircraft, "VHABC"
equal "Item(1).Route", reply.Item(1).Route, "r"
isNothing "Item(2)", reply.Item(2)
reply.Add create("SPFIBDescriptor"): equal "Add", reply.Count, 2
reply.Add Nothing: equal "Add of nothing", reply.Count, 2
On Error Resume Next
reply.Add create("ActiveFlightNotifDetails")
raised "Add of what it lists itself", 13, ""
On Error Goto 0

' Other answers.
Set reply = create("AuthenticateRsp")
Set reply.ResponseDoc = newDocument("<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'><s:Body>" & _
  "<s:Fault><faultcode>Server</faultcode><faultstring>Down</faultstring></s:Fault></s:Body></s:Envelope>")
equal "ErrorText of a fault", reply.ErrorText, _
  "SOAP Fault Code: Server" & vbCrLf & "SOAP Fault String: Down" & vbCrLf
Set reply.ResponseDoc = newDocument("<a>other</a>")
equal "ErrorText without SOAP", reply.ErrorText, "SOAP Fault: Not a SOAP response" & vbCrLf & "other"
isNothing "Payload without SOAP", reply.Payload
Set reply.ResponseDoc = Nothing
equal "ErrorText without a document", reply.ErrorText, "No response set"
isNothing "ResponseDoc", reply.ResponseDoc
finish
