// Logs in, asks for a briefing and files a flight plan:
//   cscript brief.js USER PASSWORD "2026-11-20 09:00"
// The departure time is UTC.
function check(response) {
  if (!response.Error) return response;
  WScript.Echo(response.ErrorText);
  WScript.Quit(1);
}

var config = new ActiveXObject("Brevank.NAIPSConfig");
config.Mode = 1; // production
config.UserName = WScript.Arguments(0);
config.Password = WScript.Arguments(1);

var holder = check(new ActiveXObject("Brevank.AuthenticateRqs").submit());
WScript.Echo("Logged in: " + holder.Name);

var request = new ActiveXObject("Brevank.LocationBriefingRqs");
request.addLocation("YSSY");
request.addLocation("YMML");
request.setFlag(0, true); // MET
request.setFlag(1, true); // NOTAM
request.briefingReq.Duration = 6; // hours
var briefing = check(request.submit());
WScript.Echo(briefing.Content);
for (var images = new Enumerator(briefing.Images); !images.atEnd(); images.moveNext()) {
  WScript.Echo(images.item().File);
}

var stage = new ActiveXObject("Brevank.ICAOFlightNotifStage");
stage.Aircraft = "VHABC";
stage.AircraftType = "C172";
stage.Depart = "YSSY";
stage.Destination = "YMML";
stage.ETD = WScript.Arguments(2); // automation makes a date of the text
stage.TEET = 180; // minutes
var segment = new ActiveXObject("Brevank.ICAORouteSegment");
segment.setNamed("WOL");
stage.Route = new ActiveXObject("Brevank.ICAORoute");
stage.Route.Add(segment);

var plan = new ActiveXObject("Brevank.SubmitICAOFlightNotifRqs");
plan.Notification.Add(stage);
var filed = check(plan.submit());
WScript.Echo(filed.Item(1));
