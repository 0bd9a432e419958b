// Every operation at the simulated service: its answer is a success and of its class.
var config = create("NAIPSConfig");
config.Mode = 1;
config.UseProxy = true;
config.UserName = "demo";
config.Password = "demo-pilot";

function submitted(request) {
  var reply = request.submit();
  equal("Error", reply.Error, false);
  equal("ErrorText", reply.ErrorText, "");
  equal("Payload", reply.Payload.getAttribute("status"), "SUCCESS");
  equal("ResponseDoc", reply.ResponseDoc.selectSingleNode("//soap:Body/*").nodeName,
        reply.Payload.nodeName);
  return reply;
}

function made(className, values) {
  var object = create(className);
  for (var name in values) object[name] = values[name];
  return object;
}

var departure = 46346.9;  // 2026-11-20, in the evening
var number;

test(function () {
  equal("Name", submitted(create("AuthenticateRqs")).Name, "Dana Demo");
  submitted(made("ChangePasswordRqs", { NewPassword: "demo-pilot", Email: "js@pilot.example" }));
  equal("Email", submitted(create("AuthenticateRqs")).Email, "js@pilot.example");
  equal("Count", submitted(create("GetGroupAffiliationRqs")).Count, 2);
});

test(function () {
  var request = create("AreaBriefingRqs");
  request.addArea("20");
  request.setFlag(3, true);
  var reply = submitted(request);
  isTrue("Images", reply.Count > 0 && entries(reply.Images).length === reply.Count);
  request = create("LocationBriefingRqs");
  request.addLocation("YSSY");
  request.setFlag(0, true);
  contains("Content", submitted(request).Content, "TAF YSSY");
  request = create("MetBriefingRqs");
  request.addLocation("YSSY");
  request.setFlag(2, true);
  contains("Content", submitted(request).Content, "METAR YSSY");
  request = create("FirstLastLightRqs");
  request.setNamed("YSSY");
  isTrue("FirstLight", submitted(request).FirstLight.length > 0);
  request = create("RAIMRqs");
  request.addLocation("YSSY");
  contains("Content", submitted(request).Content, "YSSY");
  equal("Error", create("BriefingRequest").submit().Error, true);
});

test(function () {
  var list = submitted(create("ActiveSPFIBDirectoryRqs"));
  number = list.Item(1).Number;
  equal("SPFIBSpec", submitted(made("GetSPFIBRqs", { Number: number })).SPFIBSpec.Aircraft, "NOSEND");
  submitted(made("UpdateSPFIBRqs", { SPFIBNumber: number, Duration: 12 }));
  list = submitted(made("ViewNOTAMListForSPFIBRqs", { SPFIBNo: number }));
  var request = create("RetrieveFullTextNotamRqs");
  request.addKey(list.Item(1).NotamKey);
  isTrue("Content", submitted(request).Content.length > 0);
  var route = create("SPFIBRoute");
  route.RouteCode = "A1";
  var spec = made("SPFIBSpec", { Aircraft: "VHABC" });
  spec.addStage(made("SPFIBStageSpec", { Departing: "YSSY", Destination: "YMML", ETD: departure,
    Route: route }));
  contains("Content", submitted(made("SPFIBRqs", { Duration: 6, SPFIBSpec: spec })).Content, "YMML");
  request = made("WindTempProfileRqs", { TAS: "N0440" });
  request.addStage(made("WindTempStage", { Depart: "YSSY", Destination: "YMML", ETD: departure }));
  contains("Content", submitted(request).Content, "YMML");
});

test(function () {
  var list = submitted(create("GeneralMETMessageDirRqs"));
  var request = made("GetGeneralMETMessageRqs", { Name: list.Name(1), MessageType: list.EntryType(1) });
  contains("Content", submitted(request).Content, "WEATHER");
  var ends = { Depart: "YSSY", Destination: "YMML" };
  equal("RouteCode", submitted(made("RouteDirectoryRqs", ends)).Item(1).RouteCode, "A1");
  ends.Code = "A1";
  contains("Payload", submitted(made("GetRouteRqs", ends)).Payload.text, "WOL");
  list = submitted(made("LocAirspaceDirectoryRqs", { PartialName: "syd" }));
  contains("Item", list.Item(1).Name, "SYD");
});

test(function () {
  var request = create("SubmitICAOFlightNotifRqs");
  request.Notification.Add(made("ICAOFlightNotifStage", { Aircraft: "VHGHI", Depart: "YSSY",
    Destination: "YMML", ETD: departure, TEET: 75, Route: create("ICAORoute") }));
  contains("Item", submitted(request).Item(1), "VHGHI");
  request = create("SubmitSARTimeNotifRqs");
  request.Notification.Aircraft = "VHJKL";
  request.Notification.Add(made("SARTimeFlightNotifStage", { Depart: "YSBK", Destination: "YMOR",
    ETD: departure }));
  contains("NotifText", submitted(request).NotifText, "VHJKL");
  var list = submitted(made("ActiveFlightNotifDirRqs", { Aircraft: "VHJKL" }));
  equal("Item", list.Item(1).Aircraft, "VHJKL");
  list = submitted(create("ChartDirectoryRqs"));
  var reply = submitted(made("GetChartRqs", { Key: list.Item(1).Key, Resolution: "LO" }));
  equal("ChartDescriptor", reply.ChartDescriptor.Key, list.Item(1).Key);
  isTrue("FilePath", new ActiveXObject("Scripting.FileSystemObject").FileExists(reply.Item(1).FilePath));
});
finish();
