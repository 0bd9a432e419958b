' The configuration and the parts that requests share.
Dim config: Set config = create("NAIPSConfig")
equal "Mode", config.Mode, 0
config.Mode = 2: equal "Mode", config.Mode, 2
config.Mode = -70000: equal "Mode", config.Mode, -70000
config.UserName = " pilot1 ": equal "UserName", config.UserName, "PILOT1"
config.Password = " Secret ": equal "Password", config.Password, " Secret "
config.NewFPLFormat = True: equal "NewFPLFormat", config.NewFPLFormat, True
config.UseProxy = True: equal "UseProxy", config.UseProxy, True
config.DisableICAO = True: equal "DisableICAO", config.DisableICAO, True

Dim other: Set other = create("NAIPSConfig")
isTrue "every object is one of its own", Not (config Is other)
equal "UserName through another object", other.UserName, "PILOT1"
other.Mode = 1: equal "Mode through another object", config.Mode, 1
Set config = Nothing
Set other = Nothing
Set config = create("NAIPSConfig")
equal "Mode is kept without an object", config.Mode, 1

Dim header: Set header = create("AbstractRequest")
equal "User", header.User, ""
header.User = " pilot2 ": equal "User", header.User, "PILOT2"
header.Password = " Word ": equal "Password", header.Password, " Word "
header.Scope = " Area ": equal "Scope", header.Scope, " Area "
equal "Source", header.Source, "orvalix"
header.Source = "Host": equal "Source", header.Source, "Host"
equal "ElementName", header.ElementName, "abstractrequest"
header.ElementName = " a-rqs ": equal "ElementName", header.ElementName, "a-rqs"
contains "appendTo", written(header), "<ndd:a-rqs"
contains "appendTo", written(header), "source=""Host"""
contains "appendTo", written(header), "requestor=""PILOT2"""
contains "appendTo", written(header), "password="" Word """
contains "appendTo", written(header), "scope="" Area """
header.ElementName = "   ": equal "ElementName", header.ElementName, "abstractrequest"
header.User = "": header.Scope = ""
contains "appendTo with the account of the configuration", written(header), "requestor=""PILOT1"""
contains "appendTo with the account of the configuration", written(header), "password="" Secret """
isTrue "appendTo without a scope", InStr(written(header), "scope") = 0

Dim period: Set period = create("BriefingRequest")
equal "From", period.From, #1970-01-01 00:00:00#
equal "Till", period.Till, #1970-01-01 00:00:00#
equal "Duration", period.Duration, 0
equal "appendTo", written(period), "<root/>"
period.Duration = 6: equal "Duration", period.Duration, 6
equal "appendTo", written(period), "<ndd:duration>PT06H</ndd:duration>"
period.From = #2024-05-01 06:30:00#: equal "From", period.From, #2024-05-01 06:30:00#
period.Till = #2024-05-01 04:00:00#: equal "Till", period.Till, #2024-05-01 04:00:00#
equal "appendTo", written(period), "<ndd:duration>PT06H</ndd:duration>"
period.Till = #2024-05-02 23:59:59#
equal "appendTo", written(period), "<ndd:period><ndd:from>2024-05-01T06:30:00Z</ndd:from>" & _
  "<ndd:till>2024-05-02T23:59:59Z</ndd:till></ndd:period>"
period.Duration = 48: equal "Duration", period.Duration, 48
period.From = #1970-01-01#: equal "appendTo", written(period), "<root/>"

' A part of a request keeps its request alive, and is the same object each time.
Dim request: Set request = create("AuthenticateRqs")
same "abstractReq", request.abstractReq, request.abstractReq
Set header = request.abstractReq
header.User = "one": equal "abstractReq.User", request.abstractReq.User, "ONE"
Set request = Nothing
equal "abstractReq of a request let go", header.ElementName, "authenticate-rqs"
contains "abstractReq of a request let go", written(header), "requestor=""ONE"""
Set request = create("AreaBriefingRqs")
same "briefingReq", request.briefingReq, request.briefingReq
isTrue "parts are of one request", Not (request.abstractReq Is create("AreaBriefingRqs").abstractReq)
Set period = request.briefingReq
period.Duration = 12
Set request = Nothing
equal "briefingReq of a request let go", written(period), "<ndd:duration>PT12H</ndd:duration>"

Set request = create("AuthenticateRqs")
contains "appendTo", written(request), "<ndd:authenticate-rqs"
Set request = create("ChangePasswordRqs")
request.NewPassword = " New ": equal "NewPassword", request.NewPassword, " New "
request.Email = " a@b ": equal "Email", request.Email, " a@b "
contains "appendTo", written(request), _
  "<ndd:new-password> New </ndd:new-password><ndd:email> a@b </ndd:email>"
Set request = create("GetGroupAffiliationRqs")
contains "appendTo", written(request), "<ndd:get-group-affiliation-rqs"

Dim member: Set member = create("GroupMemberInfo")
member.Name = " Club ": equal "Name", member.Name, " Club "
member.Manager = True: equal "Manager", member.Manager, True
finish
