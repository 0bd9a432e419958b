// Logs in, asks for a briefing and files a flight plan:
//   Brief USER PASSWORD "2026-11-20 09:00"
// The departure time is UTC. Needs a reference to the type library Brevank.
using System;
using Brevank;

static class Brief
{
    static void Check(object response)
    {
        var answer = (AbstractResponse)response;
        if (answer.Error) throw new ApplicationException(answer.ErrorText);
    }

    [STAThread]
    static void Main(string[] arguments)
    {
        var config = new NAIPSConfig
        {
            Mode = 1, // production
            UserName = arguments[0],
            Password = arguments[1]
        };

        var holder = new AuthenticateRqs().submit();
        Check(holder);
        Console.WriteLine("Logged in: " + holder.Name);

        var request = new LocationBriefingRqs();
        request.addLocation("YSSY");
        request.addLocation("YMML");
        request.setFlag(0, true); // MET
        request.setFlag(1, true); // NOTAM
        request.briefingReq.Duration = 6; // hours
        var briefing = request.submit();
        Check(briefing);
        Console.WriteLine(briefing.Content);
        foreach (BriefItem image in briefing.Images) Console.WriteLine(image.File);

        var segment = new ICAORouteSegment();
        segment.setNamed("WOL");
        var route = new ICAORoute();
        route.Add(segment);
        var stage = new ICAOFlightNotifStage
        {
            Aircraft = "VHABC",
            AircraftType = "C172",
            Depart = "YSSY",
            Destination = "YMML",
            ETD = DateTime.Parse(arguments[2]),
            TEET = 180, // minutes
            Route = route
        };

        var plan = new SubmitICAOFlightNotifRqs();
        plan.Notification.Add(stage);
        var filed = plan.submit();
        Check(filed);
        Console.WriteLine(filed[1]);
    }
}
