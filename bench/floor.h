#pragma once

#include <curl/curl.h>
#include <libxml/tree.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The bare minimum against which the library is measured: the same work by hand with a libcurl
/// handle, the libxml2 DOM and general XPath. Texts stay UTF-8, errors end the program, and there
/// are no options. It stays as it is, so that ratios can be compared over time.
namespace hand {

struct Login {
  std::string name, motd, email, scheduling, faxId;
};

struct Briefing {
  std::string text;
  std::vector<std::string> files;
};

struct Route {
  std::string departure, destination, code, description;
};

/// An XML element that holds text only.
struct Item {
  const char* name;
  std::string text;
};

struct Stage {
  std::vector<Item> flight, route, otherInfo, people, dinghies, remarks;
  std::vector<std::vector<Item>> segments;
  std::string registration, pilot, phone;
  std::vector<Item> radios, survival, jackets;
};

/// A handle on the service: a new connection a call; the loaded issuers and the TLS tickets are
/// kept.
class Client {
 public:
  /// Connects to "address:port" whatever the URL says; trusts the issuers of a file.
  Client(const std::string& connectTo, const std::string& caFile);

  /// The body of the answer to a posted document.
  std::string post(const std::string& url, const std::string& document);

  Login login(const std::string& url);
  /// Writes the products into a folder.
  Briefing briefing(const std::string& url, const std::string& folder);
  std::vector<Route> routes(const std::string& url);

 private:
  struct Cleanup {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
  };
  std::unique_ptr<CURL, Cleanup> easy_;
  std::unique_ptr<curl_slist, Cleanup> headers_;
  std::unique_ptr<curl_slist, Cleanup> connectTo_;
};

/// The document that files a flight notification.
std::string notification(const std::vector<Stage>& stages);

/// Sets libcurl and libxml2 up; once, before any thread.
void initialise();

}  // namespace hand
