@echo off
rem register [user]: makes the classes of KTPNaips.dll known to all programs, for everybody (as an
rem administrator) or for the user alone. The folder must stay where it is.
setlocal
set regsvr32=regsvr32
rem A 64-bit Windows keeps the one for 32-bit DLLs elsewhere; each refuses the other's.
if "@word_size@"=="x86" if exist "%SystemRoot%\SysWOW64\regsvr32.exe" set regsvr32=%SystemRoot%\SysWOW64\regsvr32.exe
if "%~1"=="" (
  "%regsvr32%" /s "%~dp0KTPNaips.dll"
) else (
  "%regsvr32%" /s /n /i:%1 "%~dp0KTPNaips.dll"
)
if errorlevel 1 (
  echo KTPNaips.dll could not be registered. Run this as an administrator, or as: register user
  exit /b 1
)
echo KTPNaips.dll is registered.
