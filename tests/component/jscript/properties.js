// Every property that can be set, class by class: [given, read back].
var kept16 = [-32768, -32768], asGiven = [" Ab  c ", " Ab  c "], cleaned = [" Ab  c ", "AB  C"];
var collapsed = [" Ab  c ", "AB C"], yes = [true, true];
// A date counts days from 1899-12-30. Some engines cannot read one: what it became is seen where it
// is written.
var date = [46342.5];

var properties = {
  NAIPSConfig: { Mode: [-70000, -70000], UserName: [" ab ", "AB"], Password: asGiven,
    NewFPLFormat: yes, UseProxy: yes, DisableICAO: yes },
  AbstractRequest: { User: [" ab ", "AB"], Password: asGiven, Scope: asGiven, Source: asGiven,
    ElementName: [" a-rqs ", "a-rqs"] },
  BriefingRequest: { From: date, Till: date, Duration: kept16 },
  ChangePasswordRqs: { NewPassword: asGiven, Email: asGiven },
  GroupMemberInfo: { Name: asGiven, Manager: yes },
  NamedPoint: { Name: cleaned },
  CoordinatePoint: { Lat: [-33.8667, -33.8667], Lon: [1e9, 1e9] },
  BearingDistPoint: { Name: cleaned, Bearing: kept16, Distance: [32767, 32767] },
  BriefItem: { Product: asGiven, File: asGiven, ProductType: asGiven },
  Product: { ProductType: asGiven, Resolution: asGiven, FilePath: asGiven },
  FirstLastLightRqs: { ForDate: date },
  ViewNOTAMListForSPFIBRqs: { SPFIBNo: asGiven },
  NotamBaseDescriptor: { NotamKey: asGiven, NotamId: asGiven, Location: asGiven, Summary: asGiven },
  GetChartRqs: { Key: asGiven, Resolution: [" hi ", " hi "] },
  ChartDescriptor: { StoreTime: date, Name: asGiven, Key: asGiven, LowRes: yes, HighRes: yes,
    PDF: yes, ProductType: asGiven },
  SPFIBRoute: { RouteCode: cleaned },
  SPFIBStageSpec: { WeightCat: [" m ", "M"], ETD: date, Departing: [" sy045025", "SY045025"],
    Destination: [" ymml ", "YMML"], Level: asGiven, AltDestination: ["ymav", "YMAV"],
    AltLevel: asGiven },
  SPFIBSpec: { Aircraft: asGiven, TAS: asGiven },
  SPFIBRqs: { Duration: [30, 30], GroupId: asGiven },
  GetSPFIBRqs: { Number: asGiven },
  UpdateSPFIBRqs: { Duration: [31, 0], SPFIBNumber: asGiven, StageCount: [10, 10] },
  ActiveSPFIBDirectoryRqs: { GroupId: asGiven },
  SPFIBDescriptor: { Number: asGiven, Aircraft: asGiven, DTG: date },
  WindTempProfileRqs: { TAS: cleaned },
  WindTempStage: { ETD: date, Depart: cleaned, Destination: cleaned, Route: ["  ", "DCT"] },
  RouteDirectoryRqs: { DomesticOnly: [false, false], Depart: cleaned, Destination: cleaned },
  GetRouteRqs: { Depart: cleaned, Code: cleaned, Destination: cleaned },
  RouteSummary: { Depart: asGiven, Destination: asGiven, RouteCode: asGiven, Description: asGiven },
  LocAirspaceDirectoryRqs: { PartialName: cleaned },
  LocAirspaceDetails: { Key: asGiven, Name: asGiven, Description: asGiven },
  GetGeneralMETMessageRqs: { Name: asGiven, MessageType: asGiven },
  ICAOFlightNotif: { Domestic: [false, false] },
  ICAOFlightNotifStage: { Registration: cleaned, AltDestination: cleaned, Aircraft: collapsed,
    FlightRules: ["ifr", "I"], TypeOfFlight: ["q", "G"], AircraftType: [" b738 ", "B738"],
    WTC: [" heavy", "H"], NavComEquip: [" s d f ", "SDF"], SSREquip: [" ", "N"],
    Depart: [" ymml ", "YMML"], Destination: cleaned, TEET: [-1, 0], ETD: date,
    NumAircraft: [11, 1], ADS: yes },
  ICAORoute: { Speed: cleaned, Level: cleaned },
  ICAORouteSegment: { NewSpeed: cleaned, NewLevel: cleaned, ATSRouteId: cleaned, NewRules: cleaned,
    CCLevel: cleaned },
  ICAOOtherInfo: { EET: collapsed, RIF: collapsed, SEL: collapsed, OPR: collapsed, STS: collapsed,
    PER: [" cat", "C"], COM: collapsed, NAV: collapsed, DAT: collapsed, DEP: collapsed,
    Dest: collapsed, ALTN: collapsed, RALT: collapsed, Code: collapsed, RMK: collapsed,
    TYP: collapsed, DLA: collapsed, PBN: collapsed, SUR: collapsed, ORGN: collapsed,
    TALT: collapsed },
  ICAOSupplInfo: { Endurance: [-1, 0], POBTBA: yes, POB: [4, 4], DinghyCount: [100, 0],
    DinghyCapacity: [999, 999], DinghyCovered: yes, DinghyColour: ["bright  orange", "BRIGHT ORA"],
    AircraftColour: collapsed, Remarks: collapsed },
  PilotContactInfo: { Name: collapsed, Phone: collapsed },
  SarTimeInfo: { Time: date, TBA: [false, false], ATSUnit: collapsed, EndPoint: collapsed,
    Location: collapsed },
  SARTimeFlightNotif: { Aircraft: collapsed, AircraftType: collapsed, Remarks: collapsed,
    Endurance: [240, 240], POB: ["4 pax", "4"] },
  SARTimeFlightNotifStage: { AltDestination: collapsed, Depart: collapsed, Destination: collapsed,
    ETD: date },
  SubmitICAOFlightNotifRqs: { GroupId: asGiven, IgnoreTypeMismatch: yes },
  SubmitSARTimeNotifRqs: { GroupId: asGiven },
  ActiveFlightNotifDirRqs: { Aircraft: collapsed, GroupId: asGiven },
  ActiveFlightNotifDetails: { OwnerId: asGiven, Route: asGiven, Aircraft: asGiven, DTG: date,
    GroupId: asGiven, Id: asGiven }
};

// Every reference that can be set: [a class that fits, one that does not].
var references = {
  FirstLastLightRqs: { Point: ["BearingDistPoint", "SPFIBRoute"] },
  SPFIBStageSpec: { Route: ["SPFIBRoute", "ICAORoute"], AltRoute: ["SPFIBRoute", "NamedPoint"] },
  SPFIBRqs: { SPFIBSpec: ["SPFIBSpec", "SPFIBStageSpec"] },
  LocAirspaceDetails: { Coord: ["CoordinatePoint", "NamedPoint"] },
  ICAOFlightNotifStage: { Route: ["ICAORoute", "SPFIBRoute"], OtherInfo: ["ICAOOtherInfo", "SarTimeInfo"],
    SARTime: ["SarTimeInfo", "ICAOSupplInfo"], SupplInfo: ["ICAOSupplInfo", "ICAOOtherInfo"] },
  ICAORouteSegment: { Waypoint: ["NamedPoint", "ICAORoute"] },
  ICAOSupplInfo: { Pilot: ["PilotContactInfo", "SarTimeInfo"] },
  SARTimeFlightNotif: { Pilot: ["PilotContactInfo", "SarTimeInfo"],
    SarTimeInfo: ["SarTimeInfo", "PilotContactInfo"] },
  SubmitICAOFlightNotifRqs: { Notification: ["ICAOFlightNotif", "SARTimeFlightNotif"] },
  SubmitSARTimeNotifRqs: { Notification: ["SARTimeFlightNotif", "ICAOFlightNotif"] }
};

for (var className in properties) test(function () {
  var object = create(className);
  for (var name in properties[className]) {
    var pair = properties[className][name];
    object[name] = pair[0];
    if (pair !== date) equal(name, object[name], pair[1]);
  }
});

for (className in references) test(function () {
  var object = create(className);
  for (var name in references[className]) {
    var fitting = new ActiveXObject("Brevank." + references[className][name][0]);
    var other = new ActiveXObject("Brevank." + references[className][name][1]);
    object[name] = fitting;
    same(name, object[name], fitting);
    raises(name, function () { object[name] = other; }, 13);
    same(name, object[name], fitting);
  }
});

test(function () {
  var period = create("BriefingRequest");
  period.From = 46342.5;
  period.Till = 46342.75;
  equal("From and Till", written(period), "<ndd:period><ndd:from>2026-11-16T12:00:00Z</ndd:from>" +
    "<ndd:till>2026-11-16T18:00:00Z</ndd:till></ndd:period>");
  var stage = create("WindTempStage");
  stage.ETD = 46342.5;
  contains("ETD", written(stage), "<ndd:etd>2026-11-16T12:00:00Z</ndd:etd>");
  var sar = create("SarTimeInfo");
  sar.TBA = false;
  sar.Time = "2026-11-16 12:00:00";
  contains("Time", written(sar), "<ndd:sartime>2026-11-16T12:00:00Z</ndd:sartime>");
  var light = create("FirstLastLightRqs");
  light.ForDate = 46342.5;
  contains("ForDate", written(light), "<ndd:date>2026-11-16</ndd:date>");
});
finish();
