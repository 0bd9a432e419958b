' Logs in, asks for a briefing and files a flight plan:
'   cscript brief.vbs USER PASSWORD "2026-11-20 09:00"
' The departure time is UTC.
Option Explicit

Dim config: Set config = CreateObject("Brevank.NAIPSConfig")
config.Mode = 1  ' production
config.UserName = WScript.Arguments(0)
config.Password = WScript.Arguments(1)

Dim holder: Set holder = CreateObject("Brevank.AuthenticateRqs").submit()
Check holder
WScript.Echo "Logged in: " & holder.Name

Dim request: Set request = CreateObject("Brevank.LocationBriefingRqs")
request.addLocation "YSSY"
request.addLocation "YMML"
request.setFlag 0, True  ' MET
request.setFlag 1, True  ' NOTAM
request.briefingReq.Duration = 6  ' hours
Dim briefing: Set briefing = request.submit()
Check briefing
WScript.Echo briefing.Content
Dim image
For Each image In briefing.Images
  WScript.Echo image.File
Next

Dim stage: Set stage = CreateObject("Brevank.ICAOFlightNotifStage")
stage.Aircraft = "VHABC"
stage.AircraftType = "C172"
stage.Depart = "YSSY"
stage.Destination = "YMML"
stage.ETD = CDate(WScript.Arguments(2))
stage.TEET = 180  ' minutes
Dim segment: Set segment = CreateObject("Brevank.ICAORouteSegment")
segment.setNamed "WOL"
Set stage.Route = CreateObject("Brevank.ICAORoute")
stage.Route.Add segment

Dim plan: Set plan = CreateObject("Brevank.SubmitICAOFlightNotifRqs")
plan.Notification.Add stage
Dim filed: Set filed = plan.submit()
If filed.Outcome = "in-doubt" Then
  WScript.Echo "It may have been filed: look with ActiveFlightNotifDirRqs before it is filed again."
End If
Check filed
WScript.Echo filed.Item(1)

Sub Check(response)
  If response.Error Then
    WScript.Echo response.ErrorText
    WScript.Quit 1
  End If
End Sub
