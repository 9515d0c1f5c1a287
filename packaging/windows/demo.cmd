@echo off
rem Opens a simulated plant and ZekView on it.
cd /d "%~dp0"
start "zekview-sim" zekview-sim.exe --port 5100 --plant demo\plant --keep
start "" zekview.exe --ini demo
