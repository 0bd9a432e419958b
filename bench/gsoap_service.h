// The service for soapcpp2, which makes gSOAP's code and the WSDL that zeep reads of it. Texts are
// wide, as hosts of the library read them.
// clang-format off
//gsoap ndd service name: naips
//gsoap ndd service style: document
//gsoap ndd service encoding: literal
//gsoap ndd service namespace: http://bench.example/naips/xsd
//gsoap ndd schema namespace: http://bench.example/naips/xsd
//gsoap ndd schema elementForm: qualified
#import "stl.h"

class xsd__base64Binary {
  unsigned char* __ptr;
  int __size;
};

class _ndd__authenticate_rqs {
  @std::string source;
  @std::string requestor;
  @std::string password;
};

class _ndd__authenticate_rsp {
  @std::string status;
  std::wstring name;
  std::wstring motd;
  std::wstring email;
  bool scheduling;
  std::wstring avfax_id;
};

class _ndd__loc_brief_rqs {
  @std::string source;
  @std::string requestor;
  @std::string password;
  std::string loc;
};

class ndd__product {
  @std::string type;
  xsd__base64Binary content;
};

class _ndd__loc_brief_rsp {
  @std::string status;
  std::wstring content 0:1;
  std::vector<ndd__product> product 0;
};

class _ndd__route_dir_rqs {
  @std::string source;
  @std::string requestor;
  @std::string password;
  std::string adep;
  std::string ades;
};

class ndd__route {
  std::wstring adep;
  std::wstring ades;
  std::wstring code;
  std::wstring description;
};

class _ndd__route_dir_rsp {
  @std::string status;
  std::vector<ndd__route> route 0;
};

int __ndd__authenticate(_ndd__authenticate_rqs* ndd__authenticate_rqs,
                        _ndd__authenticate_rsp& ndd__authenticate_rsp);
int __ndd__brief(_ndd__loc_brief_rqs* ndd__loc_brief_rqs,
                 _ndd__loc_brief_rsp& ndd__loc_brief_rsp);
int __ndd__routes(_ndd__route_dir_rqs* ndd__route_dir_rqs,
                  _ndd__route_dir_rsp& ndd__route_dir_rsp);
