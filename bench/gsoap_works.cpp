#include <soapH.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "measuring.h"
#include "naips.nsmap"

/// The works, with gSOAP.
namespace {

using bench::measure;

std::string address;  // "host:port" of every TCP connection
SOAP_SOCKET (*connectAsUsual)(soap*, const char*, const char*, int);

SOAP_SOCKET connectThere(soap* client, const char* endpoint, const char*, int) {
  const auto colon = address.find(':');
  return connectAsUsual(client, endpoint, address.substr(0, colon).c_str(),
                        std::stoi(address.substr(colon + 1)));
}

/// A client that makes a new connection a call and keeps its TLS context.
class Client {
 public:
  explicit Client(const std::string& connectTo)
      : client_(soap_new1(SOAP_IO_DEFAULT | SOAP_C_UTFSTRING | SOAP_XML_TREE)) {
    address = connectTo;
    connectAsUsual = client_->fopen;
    client_->fopen = connectThere;
    const std::string issuers = bench::issuers();
    check(soap_ssl_client_context(client_,
                                  SOAP_SSL_REQUIRE_SERVER_AUTHENTICATION | SOAP_SSL_SKIP_HOST_CHECK,
                                  nullptr, nullptr, issuers.c_str(), nullptr, nullptr));
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  ~Client() {
    soap_destroy(client_);
    soap_end(client_);
    soap_free(client_);
  }

  /// Calls an operation, hands its answer to `use` and forgets it.
  template <class Request, class Answer, class Use>
  void call(int (*operation)(soap*, const char*, const char*, Request*, Answer&), Request request,
            const std::string& url, Use use) {
    request.source = "orvalix";
    request.requestor = "PILOT1";
    request.password = "secret";
    {
      Answer answer;
      check(operation(client_, url.c_str(), "", &request, answer));
      if (answer.status != "SUCCESS") std::exit(1);
      use(answer);
    }
    soap_destroy(client_);
    soap_end(client_);
  }

 private:
  void check(int code) {
    if (code == SOAP_OK) return;
    soap_print_fault(client_, stderr);
    std::exit(1);
  }

  soap* client_;
};

std::string url(const std::string& answer) {
  return "http://" + answer + ".bench.example:8080/naips";
}

void logIn(benchmark::State& state, const std::string& connectTo, const std::string& at) {
  Client client(connectTo);
  measure(state, [&] {
    client.call(soap_call___ndd__authenticate, _ndd__authenticate_rqs(), at,
                [](const _ndd__authenticate_rsp& answer) {
                  benchmark::DoNotOptimize(answer.name.size() + answer.motd.size() +
                                           answer.email.size() + answer.avfax_id.size());
                });
  });
}

void login(benchmark::State& state) {
  logIn(state, bench::httpAddress(), url("login"));
}
BENCHMARK(login)->Name("login/http")->Apply(bench::manually);

void loginSecurely(benchmark::State& state) {
  logIn(state, bench::httpsAddress(), "https://login.bench.example/naips");
}
BENCHMARK(loginSecurely)->Name("login/https")->Apply(bench::manually);

void readBriefing(benchmark::State& state, const std::string& name) {
  Client client(bench::httpAddress());
  std::vector<std::string> files;
  const std::string start = bench::environment("XDG_DATA_HOME") + "/NAIPS";
  measure(
      state,
      [&] {
        _ndd__loc_brief_rqs request;
        request.loc = "YSSY";
        client.call(
            soap_call___ndd__brief, request, url(name), [&](const _ndd__loc_brief_rsp& answer) {
              benchmark::DoNotOptimize(answer.content.size());
              for (const auto& product : answer.product) {
                files.push_back(start + std::to_string(files.size()) + "." + product.type);
                const auto& content = product.content;
                std::FILE* file = std::fopen(files.back().c_str(), "wbx");
                std::fwrite(content.__ptr, 1, static_cast<std::size_t>(content.__size), file);
                std::fclose(file);
              }
            });
      },
      [&] {
        for (const auto& file : files) std::filesystem::remove(file);
        files.clear();
      });
}

void briefing(benchmark::State& state) {
  readBriefing(state, "briefing");
}
BENCHMARK(briefing)->Apply(bench::manually);

void product(benchmark::State& state) {
  readBriefing(state, "product-20000000");
}
BENCHMARK(product)->Apply(bench::manually);

void directory(benchmark::State& state) {
  Client client(bench::httpAddress());
  measure(state, [&] {
    _ndd__route_dir_rqs request;
    request.adep = "YSSY";
    request.ades = "YMML";
    client.call(soap_call___ndd__routes, request, url("directory-5000"),
                [](const _ndd__route_dir_rsp& answer) {
                  std::size_t characters = 0;
                  for (const auto& route : answer.route) {
                    characters += route.adep.size() + route.ades.size() + route.code.size() +
                                  route.description.size();
                  }
                  benchmark::DoNotOptimize(characters);
                });
  });
}
BENCHMARK(directory)->Apply(bench::manually);

}  // namespace

BENCHMARK_MAIN();
