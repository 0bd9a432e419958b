// Logs in, asks for a briefing and files a flight plan:
//   brief USER PASSWORD "2026-11-20 09:00"
// The departure time is UTC. An early-bound host: brevank.h comes with the component.
#include <brevank.h>
#include <comutil.h>
#include <wrl/client.h>

#include <cstdlib>
#include <cwchar>

using Microsoft::WRL::ComPtr;

namespace {

struct Failure {
  _bstr_t text;
};

void check(HRESULT result) {
  if (FAILED(result)) throw Failure{L"A call of the component failed."};
}

template <class Interface>
ComPtr<Interface> create(const CLSID& id) {
  ComPtr<Interface> object;
  check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)));
  return object;
}

/// Posts the request; what went wrong ends the program.
template <class Response, class Request>
ComPtr<Response> submit(const ComPtr<Request>& request) {
  ComPtr<Response> response;
  check(request->submit(&response));
  if (!response) throw Failure{L"Nothing was answered."};
  VARIANT_BOOL error = VARIANT_TRUE;
  _bstr_t text;
  check(response->get_Error(&error));
  check(response->get_ErrorText(text.GetAddress()));
  if (error != VARIANT_FALSE) throw Failure{text};
  return response;
}

void print(const _bstr_t& text) {
  std::wprintf(L"%ls\n", static_cast<const wchar_t*>(text));
}

void logIn(const wchar_t* user, const wchar_t* password) {
  const auto config = create<_NAIPSConfig>(CLSID_NAIPSConfig);
  check(config->put_Mode(1));  // production
  check(config->put_UserName(_bstr_t(user)));
  check(config->put_Password(_bstr_t(password)));
  const auto holder = submit<_AuthenticateRsp>(create<_AuthenticateRqs>(CLSID_AuthenticateRqs));
  _bstr_t name;
  check(holder->get_Name(name.GetAddress()));
  print(L"Logged in: " + name);
}

void brief() {
  const auto request = create<_LocationBriefingRqs>(CLSID_LocationBriefingRqs);
  check(request->addLocation(_bstr_t(L"YSSY")));
  check(request->addLocation(_bstr_t(L"YMML")));
  check(request->setFlag(0, VARIANT_TRUE));  // MET
  check(request->setFlag(1, VARIANT_TRUE));  // NOTAM
  ComPtr<_BriefingRequest> period;
  check(request->get_briefingReq(&period));
  check(period->put_Duration(6));  // hours
  const auto briefing = submit<_BriefingResponse>(request);
  _bstr_t content;
  check(briefing->get_Content(content.GetAddress()));
  print(content);
  SHORT count = 0;
  check(briefing->get_Count(&count));
  for (SHORT i = 1; i <= count; ++i) {
    ComPtr<_BriefItem> image;
    _bstr_t file;
    check(briefing->get_Item(i, &image));
    check(image->get_File(file.GetAddress()));
    print(file);
  }
}

void filePlan(const wchar_t* departure) {
  const auto stage = create<_ICAOFlightNotifStage>(CLSID_ICAOFlightNotifStage);
  check(stage->put_Aircraft(_bstr_t(L"VHABC")));
  check(stage->put_AircraftType(_bstr_t(L"C172")));
  check(stage->put_Depart(_bstr_t(L"YSSY")));
  check(stage->put_Destination(_bstr_t(L"YMML")));
  DATE time = 0;
  check(VarDateFromStr(_bstr_t(departure), LOCALE_INVARIANT, 0, &time));
  check(stage->put_ETD(time));
  check(stage->put_TEET(180));  // minutes
  const auto segment = create<_ICAORouteSegment>(CLSID_ICAORouteSegment);
  check(segment->setNamed(_bstr_t(L"WOL")));
  const auto route = create<_ICAORoute>(CLSID_ICAORoute);
  check(route->Add(segment.Get()));
  check(stage->putref_Route(route.Get()));

  const auto plan = create<_SubmitICAOFlightNotifRqs>(CLSID_SubmitICAOFlightNotifRqs);
  ComPtr<_ICAOFlightNotif> notification;
  check(plan->get_Notification(&notification));
  check(notification->Add(stage.Get()));
  const auto filed = submit<_SubmitICAOFlightNotifRsp>(plan);
  _bstr_t text;
  check(filed->get_Item(1, text.GetAddress()));
  print(text);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count != 4 || FAILED(CoInitialize(nullptr))) return EXIT_FAILURE;
  int status = EXIT_SUCCESS;
  try {
    logIn(arguments[1], arguments[2]);
    brief();
    filePlan(arguments[3]);
  } catch (const Failure& failure) {
    print(failure.text);
    status = EXIT_FAILURE;
  }
  CoUninitialize();
  return status;
}
