// Every class is created by its name, is an object of its own each time and knows its responses.
var responses = ["AuthenticateRsp", "ChangePasswordRsp", "GetGroupAffiliationRsp",
  "BriefingResponse", "FirstLastLightRsp", "ViewNOTAMListForSPFIBRsp", "ChartDirectoryRsp",
  "GetChartRsp", "GetSPFIBRsp", "ActiveSPFIBDirectoryRsp", "RouteDirectoryRsp",
  "LocAirspaceDirectoryRsp", "GeneralMETMessageDirRsp", "SubmitICAOFlightNotifRsp",
  "SubmitSARTimeNotifRsp", "ActiveFlightNotifDirRsp"];
var requests = { AuthenticateRqs: "authenticate-rqs", ChangePasswordRqs: "change-password-rqs",
  GetGroupAffiliationRqs: "get-group-affiliation-rqs", AreaBriefingRqs: "area-brief-rqs",
  LocationBriefingRqs: "loc-brief-rqs", MetBriefingRqs: "met-brief-rqs",
  FirstLastLightRqs: "fl-ll-rqs", RAIMRqs: "raim-rqs",
  ViewNOTAMListForSPFIBRqs: "view-notam-list-for-spfib-rqs",
  RetrieveFullTextNotamRqs: "retrieve-full-text-notam-rqs", GetChartRqs: "get-chart-rqs",
  ChartDirectoryRqs: "chart-dir-rqs", SPFIBRqs: "spfib-rqs", GetSPFIBRqs: "get-spfib-rqs",
  UpdateSPFIBRqs: "update-spfib-rqs", ActiveSPFIBDirectoryRqs: "active-spfib-dir-rqs",
  WindTempProfileRqs: "wind-temp-profile-rqs", RouteDirectoryRqs: "route-dir-rqs",
  GetRouteRqs: "get-route-rqs", LocAirspaceDirectoryRqs: "loc-airspace-dir-rqs",
  GeneralMETMessageDirRqs: "general-met-dir-rqs", GetGeneralMETMessageRqs: "general-met-brief-rqs",
  SubmitICAOFlightNotifRqs: "submit-icao-fn-rqs", SubmitSARTimeNotifRqs: "submit-sar-fn-rqs",
  ActiveFlightNotifDirRqs: "active-fn-dir-rqs" };
var others = ["NAIPSConfig", "AbstractRequest", "BriefingRequest", "GroupMemberInfo", "NamedPoint",
  "CoordinatePoint", "BearingDistPoint", "BriefItem", "Product", "NotamBaseDescriptor",
  "ChartDescriptor", "SPFIBRoute", "SPFIBStageSpec", "SPFIBSpec", "SPFIBDescriptor",
  "WindTempStage", "RouteSummary", "LocAirspaceDetails", "ICAOFlightNotif", "ICAOFlightNotifStage",
  "ICAORoute", "ICAORouteSegment", "ICAOOtherInfo", "ICAOSupplInfo", "PilotContactInfo",
  "SarTimeInfo", "SARTimeFlightNotif", "SARTimeFlightNotifStage", "ActiveFlightNotifDetails"];

test(function () {
  var all = responses.concat(others);
  for (var name in requests) all.push(name);
  equal("the number of classes", all.length, 70);
  for (var i = 0; i < all.length; i++) {
    var object = create(all[i]);
    same("itself", object, object);
    isTrue("another object each time", object !== new ActiveXObject("Brevank." + all[i]));
    isTrue("by its name with the version", new ActiveXObject("Brevank." + all[i] + ".1") !== null);
  }
});

for (var name in requests) test(function () {
  var request = create(name);
  equal("abstractReq", request.abstractReq.ElementName, requests[name]);
  same("abstractReq", request.abstractReq, request.abstractReq);
  if (name === "SPFIBRqs") request.SPFIBSpec = new ActiveXObject("Brevank.SPFIBSpec");
  contains("appendTo", written(request), "<ndd:" + requests[name] + " ");
  contains("appendTo", written(request), 'source="orvalix"');
  var header = request.abstractReq;
  request = null;
  CollectGarbage();
  equal("abstractReq of a request let go", header.ElementName, requests[name]);
});

for (var i = 0; i < responses.length; i++) test(function () {
  var response = create(responses[i]);
  equal("Error", response.Error, true);
  equal("ErrorText", response.ErrorText, "No response set");
  equal("Payload", response.Payload, null);
  equal("ResponseDoc", response.ResponseDoc, null);
  var document = answer("success", "<n:desc key='k'/>");
  response.ResponseDoc = document;
  same("ResponseDoc", response.ResponseDoc, document);
  equal("ErrorText", response.ErrorText.indexOf("NAIPS Error: success\r\n"), 0);
  equal("Payload", response.Payload.xml, document.documentElement.firstChild.firstChild.xml);
});

test(function () {
  subject = "what is not offered";
  var names = ["TempFileManager", "Utils", "modBrevank", "winInet", "Enc64", "Globals"];
  for (var i = 0; i < names.length; i++)
    raises(names[i], function () { new ActiveXObject("Brevank." + names[i]); }, 429);
});
finish();
