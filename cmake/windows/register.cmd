@echo off
rem Registers the control for all users of this machine; needs an administrator.
regsvr32 "%~dp0Plotvane.ocx"
