@echo off
rem Undoes register.cmd; needs an administrator.
regsvr32 /u "%~dp0Plotvane.ocx"
