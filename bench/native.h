// Hand-written C++ functions of the workloads, compiled apart with -O2 so that no caller can inline them.
#pragma once

#include "bench/workloads.h"

namespace plotvane::bench::native {

// Read by Quadratic at every call, as the other peers read their variables.
extern Coefficients gCoefficients;

double Identity(double x);
double Square(double x);
double Cubic(double x);
double Sine(double x);
double Circle(double x);
double Gauss(double x);
double Reciprocal(double x);
double RootOfAbs(double x);
double AbsLog(double x);
double Quadratic(double x);
double Between(double x);
double Nested(double x);
double Polynomial(double x);
double Tangent(double x);

}  // namespace plotvane::bench::native
