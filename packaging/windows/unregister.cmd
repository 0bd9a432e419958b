@echo off
rem unregister [user]: takes back what register did.
setlocal
set regsvr32=regsvr32
if "@word_size@"=="x86" if exist "%SystemRoot%\SysWOW64\regsvr32.exe" set regsvr32=%SystemRoot%\SysWOW64\regsvr32.exe
if "%~1"=="" (
  "%regsvr32%" /s /u "%~dp0KTPNaips.dll"
) else (
  "%regsvr32%" /s /u /n /i:%1 "%~dp0KTPNaips.dll"
)
if errorlevel 1 (
  echo KTPNaips.dll could not be unregistered. Run this as an administrator, or as: unregister user
  exit /b 1
)
echo KTPNaips.dll is no longer registered.
