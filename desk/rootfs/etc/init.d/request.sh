#!/bin/sh
# Stands for a script of the device under its name, and tells the log what it was asked.
logger -t "${0##*/}" "asked to ${*:-run}"
