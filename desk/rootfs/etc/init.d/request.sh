#!/bin/sh
# Stands for a script of the device under its name, and tells the log what it was asked.
. /etc/init.d/functions
tell "asked to ${*:-run}"
