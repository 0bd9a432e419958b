// Every method, and the collections.
function flags(object) {
  equal("flag(5)", object.flag(5), false);
  object.setFlag(5, true);
  equal("flag(5)", object.flag(5), true);
  object.setFlag(5, false);
  equal("flag(5)", object.flag(5), false);
  equal("flag(-1)", object.flag(-1), false);
  raises("flag(31)", function () { object.flag(31); }, 6, "Overflow");
  raises("setFlag(31)", function () { object.setFlag(31, true); }, 6, "Overflow");
}

test(function () {
  var withFlags = ["AreaBriefingRqs", "LocationBriefingRqs", "MetBriefingRqs", "SPFIBSpec",
    "SPFIBRqs", "ICAOSupplInfo", "SARTimeFlightNotif"];
  for (var i = 0; i < withFlags.length; i++) flags(create(withFlags[i]));
});

function occurrences(text, part) { return text.split(part).length - 1; }

test(function () {
  var area = create("AreaBriefingRqs");
  for (var i = 0; i < 6; i++) area.addArea("a" + i);
  equal("addArea", occurrences(written(area), "<ndd:area>"), 5);
  area.clearAreas();
  equal("clearAreas", occurrences(written(area), "<ndd:area>"), 0);
  var limits = { LocationBriefingRqs: 12, MetBriefingRqs: 4 };
  for (var name in limits) {
    var request = create(name);
    for (i = 0; i < 14; i++) request.addLocation("l" + i);
    equal("addLocation", occurrences(written(request), "<ndd:loc>"), limits[name]);
    request.clearLocations();
    equal("clearLocations", occurrences(written(request), "<ndd:loc>"), 0);
  }
  var raim = create("RAIMRqs");
  for (i = 0; i < 21; i++) raim.addLocation("l" + i);
  equal("addLocation", occurrences(written(raim), "<ndd:loc>"), 20);
  var notams = create("RetrieveFullTextNotamRqs");
  notams.addKey(" k ");
  notams.addKey(" ");
  equal("addKey", notams.Count, 1);
});

function setsPoints(object, property) {
  object.setNamed("yssy");
  equal("setNamed", object[property].toString(), "YSSY");
  object.setLatLon(-33.8667, 151.2);
  equal("setLatLon", object[property].toString(), "3352S15112E");
  object.setBearingDistance("sy", 45, 25);
  equal("setBearingDistance", object[property].toString(), "SY045025");
}

test(function () {
  setsPoints(create("FirstLastLightRqs"), "Point");
  setsPoints(create("ICAORouteSegment"), "Waypoint");
});

test(function () {
  var route = create("SPFIBRoute");
  route.addNamed("sy045025");
  route.addLatLon(-33.8667, 151.2);
  route.addBearingDistance("ml", 9, 8);
  var point = new ActiveXObject("Brevank.NamedPoint");
  point.Name = "yssy";
  route.Add(point, "key");
  equal("Count", route.Count, 4);
  same("Item", route.Item(4), point);
  same("Item", route.Item("KEY"), point);
  var text = "";
  var points = entries(route);
  for (var i = 0; i < points.length; i++) text += points[i].toString() + " ";
  equal("Enumerator", text, "SY045025 3352S15112E ML009008 YSSY ");
  same("Enumerator", points[3], point);
  raises("Item(5)", function () { route.Item(5); }, 9, "Subscript out of range");
  raises("Item(0)", function () { route.Item(0); }, 9, "Subscript out of range");
  raises("Item of an unknown key", function () { route.Item("x"); }, 5,
         "Invalid procedure call or argument");
  raises("Add of a key that is there", function () { route.Add(point, "Key"); }, 457,
         "This key is already associated with an element of this collection");
  route.Remove("key");
  route.Remove(1);
  equal("Count", route.Count, 2);
  equal("Item", route.Item(1).toString(), "3352S15112E");
  route.Clear();
  equal("Count", route.Count, 0);
  equal("Enumerator of none", entries(route).length, 0);
});

test(function () {
  var stage = create("SPFIBStageSpec");
  stage.Departing = "yssy";
  stage.Destination = "ymml";
  stage.Route = new ActiveXObject("Brevank.SPFIBRoute");
  for (var i = 0; i < 10; i++) stage.addAdditionalLocation("l" + i);
  for (i = 0; i < 6; i++) stage.addAdditionalArea("a" + i);
  equal("addAdditionalLocation", occurrences(written(stage), "<ndd:additional-loc>"), 9);
  equal("addAdditionalArea", occurrences(written(stage), "<ndd:area>"), 5);
  var spec = create("SPFIBSpec");
  for (i = 0; i < 11; i++) spec.addStage(stage);
  equal("addStage", spec.Count, 10);
  same("Item", spec.Item(10), stage);
  equal("Item(11)", spec.Item(11), null);
  equal("Item(0)", spec.Item(0), null);
  var winds = create("WindTempProfileRqs");
  for (i = 0; i < 11; i++) winds.addStage(new ActiveXObject("Brevank.WindTempStage"));
  equal("addStage", occurrences(written(winds), "<ndd:stage>"), 10);
});

test(function () {
  var plan = create("ICAOFlightNotif");
  plan.Add(new ActiveXObject("Brevank.ICAOFlightNotifStage"));
  equal("Add", occurrences(written(plan), "<ndd:stage "), 1);
  var route = create("ICAORoute");
  for (var i = 0; i < 51; i++) route.Add(new ActiveXObject("Brevank.ICAORouteSegment"));
  equal("Add", occurrences(written(route), "<ndd:segment"), 50);
  var leg = create("SARTimeFlightNotifStage");
  leg.Add(" ");
  leg.Add("ysbk");
  contains("Add", written(leg), "<ndd:waypoint>YSBK</ndd:waypoint>");
  var notice = create("SARTimeFlightNotif");
  notice.Add(leg);
  equal("Add", occurrences(written(notice), "<ndd:stage "), 1);
});

// Lists of responses that a host may add to: [what fits, what does not].
var open = { GetGroupAffiliationRsp: ["GroupMemberInfo", "RouteSummary"],
  ChartDirectoryRsp: ["ChartDescriptor", "RouteSummary"],
  ActiveSPFIBDirectoryRsp: ["SPFIBDescriptor", "RouteSummary"],
  RouteDirectoryRsp: ["RouteSummary", "SPFIBDescriptor"],
  LocAirspaceDirectoryRsp: ["LocAirspaceDetails", "RouteSummary"],
  ActiveFlightNotifDirRsp: ["SPFIBDescriptor", "ActiveFlightNotifDetails"] };
for (var className in open) test(function () {
  var list = create(className);
  var entry = new ActiveXObject("Brevank." + open[className][0]);
  list.Add(entry);
  equal("Count", list.Count, 1);
  if (className !== "ActiveFlightNotifDirRsp") same("Item", list.Item(1), entry);
  equal("Item(0)", list.Item(0), null);
  equal("Item(2)", list.Item(2), null);
  raises("Add", function () { list.Add(new ActiveXObject("Brevank." + open[className][1])); }, 13);
});

// An object of the script's own is a point when it can append itself.
test(function () {
  var here = { calls: 0, appendTo: function (parent, namespaceUri) {
    this.calls++;
    parent.setAttribute("here", namespaceUri);
  } };
  var route = create("SPFIBRoute");
  route.Add(here);
  same("a point of the script", route.Item(1), here);
  contains("a point of the script", written(route), 'here="' + schema + '"');
  equal("a point of the script", here.calls, 1);
});

test(function () {
  var reply = create("BriefingResponse");
  reply.ResponseDoc = answer("SUCCESS", "<n:content>text</n:content><n:product/><n:product/>");
  equal("Content", reply.Content, "text");
  equal("Count", reply.Count, 2);
  var images = entries(reply.Images);
  equal("Images", images.length, 2);
  same("Images", images[1], reply.Item(2));
  equal("Item(3)", reply.Item(3), null);
  reply = create("GeneralMETMessageDirRsp");
  reply.ResponseDoc = answer("SUCCESS", "<n:msg><n:name>a</n:name><n:type>b</n:type></n:msg>");
  equal("Name", reply.Name(1), "a");
  equal("EntryType", reply.EntryType(1), "b");
  equal("Name(2)", reply.Name(2), "");
  equal("EntryType(0)", reply.EntryType(0), "");
  reply = create("SubmitICAOFlightNotifRsp");
  reply.ResponseDoc = answer("SUCCESS", "<n:fpl-text>(FPL)</n:fpl-text>");
  equal("Item", reply.Item(1), "(FPL)");
  equal("Item(2)", reply.Item(2), "");
  reply = create("ViewNOTAMListForSPFIBRsp");
  reply.ResponseDoc = answer("SUCCESS", "<n:notam><n:notamKey>k</n:notamKey></n:notam>");
  equal("Item", reply.Item(1).NotamKey, "k");
});
finish();
