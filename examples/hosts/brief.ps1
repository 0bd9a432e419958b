# Logs in, asks for a briefing and files a flight plan:
#   .\brief.ps1 USER PASSWORD "2026-11-20 09:00"
# The departure time is UTC.
param([string]$User, [string]$Password, [datetime]$Departure)
$ErrorActionPreference = 'Stop'

function New-Naips($Class) { New-Object -ComObject "Brevank.$Class" }
function Confirm-Response($Response) {
    if ($Response.Error) { throw $Response.ErrorText }
    $Response
}

$config = New-Naips NAIPSConfig
$config.Mode = 1  # production
$config.UserName = $User
$config.Password = $Password

$holder = Confirm-Response (New-Naips AuthenticateRqs).submit()
"Logged in: $($holder.Name)"

$request = New-Naips LocationBriefingRqs
$request.addLocation('YSSY')
$request.addLocation('YMML')
$request.setFlag(0, $true)  # MET
$request.setFlag(1, $true)  # NOTAM
$request.briefingReq.Duration = 6  # hours
$briefing = Confirm-Response $request.submit()
$briefing.Content
foreach ($image in $briefing.Images) { $image.File }

$stage = New-Naips ICAOFlightNotifStage
$stage.Aircraft = 'VHABC'
$stage.AircraftType = 'C172'
$stage.Depart = 'YSSY'
$stage.Destination = 'YMML'
$stage.ETD = $Departure
$stage.TEET = 180  # minutes
$segment = New-Naips ICAORouteSegment
$segment.setNamed('WOL')
$stage.Route = New-Naips ICAORoute
$stage.Route.Add($segment)

$plan = New-Naips SubmitICAOFlightNotifRqs
$plan.Notification.Add($stage)
$filed = Confirm-Response $plan.submit()
$filed.Item(1)
