// What the component's tests in JScript share: it stands in front of each. A test writes a line for
// each check that fails and, once it has come to its end, one last line.
var checked = 0, failed = 0, subject = "";
var schema = "http://naips.example/naips/xsd";
var envelope = "http://schemas.xmlsoap.org/soap/envelope/";

// A new object of the component, of which the checks that follow speak.
function create(className) {
  subject = className;
  return new ActiveXObject("Brevank." + className);
}

function expect(what, holds, text) {
  checked++;
  if (holds) return;
  failed++;
  WScript.Echo("FAILED " + subject + "." + what + ": " + text);
}

function shown(value) {
  return typeof value === "string" ? '"' + value + '"' : String(value);
}

function equal(what, actual, expected) {
  expect(what, actual === expected, shown(actual) + " is not " + shown(expected));
}

function contains(what, actual, part) {
  expect(what, actual.indexOf(part) >= 0, shown(actual) + " does not contain " + shown(part));
}

function startsWith(what, actual, start) {
  expect(what, actual.indexOf(start) === 0, shown(actual) + " does not start " + shown(start));
}

function isTrue(what, condition) {
  expect(what, condition, "does not hold");
}

// Objects of the component and of the DOM: whether they are the same one.
function same(what, actual, expected) {
  expect(what, actual !== null && actual === expected, "is another object");
}

// Some engines hand on the bare result of a call, others the number of their own.
var numbers = {};
numbers[0x80020003 | 0] = 438;  // unknown member
numbers[0x80020006 | 0] = 438;  // unknown name
numbers[0x80020005 | 0] = 13;   // type mismatch
numbers[0x80020008 | 0] = 13;   // bad type of variant
numbers[0x8002000a | 0] = 6;    // overflow
numbers[0x8002000e | 0] = 450;  // wrong number of arguments
numbers[0x8002000f | 0] = 450;  // argument not optional

// The error that a call ends with.
function raises(what, call, number, description) {
  var actual = 0, text = "";
  try {
    call();
  } catch (error) {
    actual = numbers[error.number] || error.number & 0xffff;
    text = error.message;
  }
  expect(what, actual === number, "error " + actual + " (" + text + ") is not " + number);
  if (description) equal(what, text, description);
}

// Sets a property and reads it back.
function kept(object, name, given, expected) {
  object[name] = given;
  equal(name, object[name], expected === undefined ? given : expected);
}

function newDocument(text) {
  var document = new ActiveXObject("MSXML2.DOMDocument");
  document.async = false;
  if (!document.loadXML(text)) throw new Error("not well-formed: " + text);
  return document;
}

// What a part writes under the element "root", in one line: engines differ in the layout.
function written(part) {
  var root = newDocument("<root/>").documentElement;
  part.appendTo(root, schema);
  return root.xml.split(' xmlns:ndd="' + schema + '"').join("").replace(/\r\n\t*|<\/?root>/g, "");
}

// A document with an answer of that status.
function answer(status, children) {
  return newDocument("<s:Envelope xmlns:s='" + envelope + "' xmlns:n='" + schema +
    "'><s:Body><n:answer status='" + status + "'>" + children + "</n:answer></s:Body></s:Envelope>");
}

function entries(collection) {
  var result = [];
  for (var each = new Enumerator(collection); !each.atEnd(); each.moveNext())
    result.push(each.item());
  return result;
}

function finish() {
  if (failed > 0) {
    WScript.Echo(failed + " of " + checked + " checks failed");
    WScript.Quit(1);
  }
  WScript.Echo("All " + checked + " checks hold");
  WScript.Quit(0);
}

// The test, which gives its name to an error that nothing expected.
function test(body) {
  try {
    body();
  } catch (error) {
    expect("?", false, "error " + error.number + " (" + error.message + ")");
  }
}
