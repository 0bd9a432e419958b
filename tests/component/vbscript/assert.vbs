Option Explicit
' What the component's tests in VBScript share: it stands in front of each. A test writes a line for
' each check that fails and, once it has come to its end, one last line.
Dim checked, failed, subject
Const schema = "http://naips.example/naips/xsd"

' A new object of the component, of which the checks that follow speak.
Function create(className)
  subject = className
  Set create = CreateObject("Brevank." & className)
End Function

Sub expect(what, holds, text)
  checked = checked + 1
  If Not holds Then
    failed = failed + 1
    WScript.Echo "FAILED " & subject & "." & what & ": " & text
  End If
End Sub

Function padded(number)
  padded = Right("0" & number, 2)
End Function

' A value with its kind; a date to the second.
Function shown(value)
  If IsObject(value) Then
    shown = "(object)"
  ElseIf VarType(value) = vbString Then
    shown = """" & value & """"
  ElseIf VarType(value) = vbDate Then
    shown = Year(value) & "-" & padded(Month(value)) & "-" & padded(Day(value)) & " " & _
            padded(Hour(value)) & ":" & padded(Minute(value)) & ":" & padded(Second(value))
  ElseIf VarType(value) = vbBoolean Then
    If value Then shown = "true" Else shown = "false"
  ElseIf IsNumeric(value) Then
    shown = CStr(CDbl(value))
  Else
    shown = "(type " & VarType(value) & ")"
  End If
End Function

Sub equal(what, actual, expected)
  expect what, shown(actual) = shown(expected), shown(actual) & " is not " & shown(expected)
End Sub

Sub contains(what, actual, part)
  expect what, InStr(actual, part) > 0, shown(actual) & " does not contain " & shown(part)
End Sub

Sub startsWith(what, actual, start)
  expect what, Left(actual, Len(start)) = start, shown(actual) & " does not start " & shown(start)
End Sub

Sub isTrue(what, condition)
  expect what, condition, "does not hold"
End Sub

Sub same(what, actual, expected)
  expect what, actual Is expected, "is another object"
End Sub

Sub isNothing(what, actual)
  expect what, actual Is Nothing, "is an object"
End Sub

' The class of an object, without the mark of its interface.
Sub isA(what, actual, className)
  Dim name: name = TypeName(actual)
  If Left(name, 1) = "_" Then name = Mid(name, 2)
  expect what, name = className, name & " is not " & className
End Sub

' The error of the statement before, which ran under On Error Resume Next.
Sub raised(what, number, description)
  Dim actual: actual = Err.Number
  Dim text: text = Err.Description
  Err.Clear
  expect what, actual = number, "error " & actual & " (" & text & ") is not " & number
  If description <> "" Then equal what, text, description
End Sub

Sub raisedNothing(what)
  raised what, 0, ""
End Sub

' An empty document of the platform's DOM. Wine's engine does not create one by name: there it comes
' from a file.
Function emptyDocument()
  On Error Resume Next
  Set emptyDocument = CreateObject("MSXML2.DOMDocument")
  If Err.Number = 0 Then Exit Function
  Err.Clear
  Dim name: name = Replace(WScript.ScriptFullName, WScript.ScriptName, "empty.xml")
  Dim file: Set file = CreateObject("Scripting.FileSystemObject").CreateTextFile(name, True)
  file.Write "<root/>"
  file.Close
  Dim http: Set http = CreateObject("MSXML2.ServerXMLHTTP")
  http.open "GET", "file:///" & Replace(name, "\", "/"), False
  http.send
  Set emptyDocument = http.responseXML
End Function

Function newDocument(text)
  Set newDocument = emptyDocument()
  newDocument.async = False
  If Not newDocument.loadXML(text) Then WScript.Echo "FAILED not well-formed: " & text
End Function

' What a part writes under the element "root", in one line: engines differ in the layout.
Function written(part)
  Dim document: Set document = newDocument("<root/>")
  part.appendTo document.documentElement, schema
  written = Replace(document.documentElement.xml, " xmlns:ndd=""" & schema & """", "")
  written = Replace(Replace(written, vbCrLf, ""), vbTab, "")
  written = Replace(written, "<root>", "")
  written = Replace(written, "</root>", "")
End Function

' A document with an answer of that status.
Function answer(status, children)
  Set answer = newDocument("<s:Envelope xmlns:s='http://schemas.xmlsoap.org/soap/envelope/'" & _
    " xmlns:n='" & schema & "'><s:Body><n:answer status='" & status & "'>" & children & _
    "</n:answer></s:Body></s:Envelope>")
End Function

Sub finish
  If failed > 0 Then
    WScript.Echo failed & " of " & checked & " checks failed"
    WScript.Quit 1
  End If
  WScript.Echo "All " & checked & " checks hold"
  WScript.Quit 0
End Sub

checked = 0
failed = 0
