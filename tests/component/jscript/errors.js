// What a script sees of a wrong call: the errors of its own language.
test(function () {
  var config = create("NAIPSConfig"), area = create("AreaBriefingRqs");
  var bearing = create("BearingDistPoint"), light = create("FirstLastLightRqs");
  var groups = create("GetGroupAffiliationRsp"), route = create("SPFIBRoute");
  subject = "errors";
  raises("calling an unknown name", function () { config.NoSuchThing(1); }, 438);
  raises("setting an unknown name", function () { config.NoSuchThing = 1; }, 438);
  raises("setting what is read-only", function () { groups.Count = 5; }, 438);
  raises("calling a member of another class", function () { area.addLocation("YSSY"); }, 438);

  raises("a text for an integer", function () { config.Mode = "high"; }, 13);
  raises("a text for a Boolean", function () { config.UseProxy = "perhaps"; }, 13);
  raises("a text for a double", function () { light.setLatLon("north", 1); }, 13);
  raises("an object for an integer", function () { bearing.Bearing = light; }, 13);
  raises("an object of another class", function () { groups.Add(route); }, 13);
  raises("a text for an object", function () { groups.Add("text"); }, 13);
  raises("an object that is no point", function () { route.Add(groups); }, 13);
  raises("a parent that is no node", function () { light.appendTo(config, schema); }, 13);

  raises("one argument too few", function () { light.setLatLon(1); }, 450);
  raises("no argument", function () { area.addArea(); }, 450);
  raises("no index", function () { groups.Item(); }, 450);

  raises("beyond 16 bits", function () { bearing.Bearing = 32768; }, 6);
  raises("beyond 16 bits", function () { bearing.Bearing = -32769; }, 6);
  raises("beyond 32 bits", function () { config.Mode = 2147483648; }, 6);
  raises("an index beyond 16 bits", function () { groups.Item(40000); }, 6);
  raises("an infinite number", function () { config.Mode = Infinity; }, 6);

  raises("an index out of range", function () { route.Item(1); }, 9, "Subscript out of range");
  raises("a class that is not there", function () { new ActiveXObject("Brevank.Nothing"); }, 429);
  equal("nothing was changed", bearing.Bearing, 0);
  equal("nothing was changed", groups.Count, 0);
});
finish();
