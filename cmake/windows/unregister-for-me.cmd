@echo off
rem Undoes register-for-me.cmd.
regsvr32 /u /n /i:user "%~dp0Plotvane.ocx"
