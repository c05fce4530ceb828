@echo off
rem Registers the control for the present user only.
regsvr32 /n /i:user "%~dp0Plotvane.ocx"
