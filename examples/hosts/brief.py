"""Logs in, asks for a briefing and files a flight plan:

    python brief.py USER PASSWORD "2026-11-20 09:00"

The departure time is UTC. Needs the package comtypes.
"""

import datetime
import sys

from comtypes.client import CreateObject


def create(name):
    return CreateObject("Brevank." + name)


def checked(response):
    if response.Error:
        sys.exit(response.ErrorText)
    return response


user, password, departure = sys.argv[1:]

config = create("NAIPSConfig")
config.Mode = 1  # production
config.UserName = user
config.Password = password

holder = checked(create("AuthenticateRqs").submit())
print("Logged in:", holder.Name)

request = create("LocationBriefingRqs")
request.addLocation("YSSY")
request.addLocation("YMML")
request.setFlag(0, True)  # MET
request.setFlag(1, True)  # NOTAM
request.briefingReq.Duration = 6  # hours
briefing = checked(request.submit())
print(briefing.Content)
for index in range(1, briefing.Count + 1):
    print(briefing.Item(index).File)

stage = create("ICAOFlightNotifStage")
stage.Aircraft = "VHABC"
stage.AircraftType = "C172"
stage.Depart = "YSSY"
stage.Destination = "YMML"
stage.ETD = datetime.datetime.fromisoformat(departure)
stage.TEET = 180  # minutes
segment = create("ICAORouteSegment")
segment.setNamed("WOL")
stage.Route = create("ICAORoute")
stage.Route.Add(segment)

plan = create("SubmitICAOFlightNotifRqs")
plan.Notification.Add(stage)
filed = checked(plan.submit())
print(filed.Item(1))
