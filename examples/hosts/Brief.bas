Attribute VB_Name = "Brief"
' Logs in, asks for a briefing and files a flight plan. The departure time is UTC. Needs a reference
' to the type library Brevank ("NAIPS flight briefing and notification").
Option Explicit

Public Sub FilePlan(user As String, word As String, departure As Date)
  Dim config As New Brevank.NAIPSConfig
  config.Mode = 1  ' production
  config.UserName = user
  config.Password = word

  Dim login As New Brevank.AuthenticateRqs
  Dim holder As Brevank.AuthenticateRsp
  Set holder = login.submit
  Check holder
  Debug.Print "Logged in: " & holder.Name

  Dim request As New Brevank.LocationBriefingRqs
  request.addLocation "YSSY"
  request.addLocation "YMML"
  request.setFlag 0, True  ' MET
  request.setFlag 1, True  ' NOTAM
  request.briefingReq.Duration = 6  ' hours
  Dim briefing As Brevank.BriefingResponse
  Set briefing = request.submit
  Check briefing
  Debug.Print briefing.Content
  Dim image As Variant
  For Each image In briefing.Images
    Debug.Print image.File
  Next

  Dim stage As New Brevank.ICAOFlightNotifStage
  stage.Aircraft = "VHABC"
  stage.AircraftType = "C172"
  stage.Depart = "YSSY"
  stage.Destination = "YMML"
  stage.ETD = departure
  stage.TEET = 180  ' minutes
  Dim segment As New Brevank.ICAORouteSegment
  segment.setNamed "WOL"
  Set stage.Route = New Brevank.ICAORoute
  stage.Route.Add segment

  Dim plan As New Brevank.SubmitICAOFlightNotifRqs
  plan.Notification.Add stage
  Dim filed As Brevank.SubmitICAOFlightNotifRsp
  Set filed = plan.submit
  Check filed
  Debug.Print filed.Item(1)
End Sub

Private Sub Check(response As Brevank.AbstractResponse)
  If response.Error Then Err.Raise vbObjectError + 1, "NAIPS", response.ErrorText
End Sub
