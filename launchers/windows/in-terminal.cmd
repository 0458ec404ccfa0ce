@echo off
rem Runs a batch file in the console window that the user has set as terminal, which stays open at the end.
rem   in-terminal.cmd [Brasquelin] BATCHFILE
rem Exit status: that of the batch; 125: the batch file cannot be read.
setlocal
set batch=%*
if "%~1"=="Brasquelin" if not "%~2"=="" set batch=%batch:* =%
set batch="%batch:"=%"
if not exist %batch% (
    echo in-terminal: The batch file %batch% cannot be read. 1>&2
    exit /b 125
)
title Brasquelin
cmd /s /c "%batch%"
set status=%errorlevel%
echo.
echo [The batch has ended with status %status%.]
pause
exit /b %status%
