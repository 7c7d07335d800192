// The twin of the orbit engine that checks nothing.
#pragma once

#include <string>

/// Takes an element set into its slot 1.
void TwinTake(const std::string& name, const std::string& line1, const std::string& line2);

/// State of slot 1 at a Julian day; gives the azimuth, degrees.
double TwinState(double julianDay);
