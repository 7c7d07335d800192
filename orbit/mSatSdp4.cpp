#include <cmath>

#include "orbit/mSatModels.h"

namespace halvorine {

void InitSdp4(WorkingElementsRecord& elements, Sdp4Terms& terms) {
  SecularTerms& s = terms.secular;
  InitSecular(elements, s);
  elements.Aodp = s.aodp;
  elements.Xnodp = s.xnodp;
  elements.Eosq = s.eosq;
  elements.Sinio = s.sinio;
  elements.Cosio = s.cosio;
  elements.Betao = s.betao;
  elements.Betao2 = s.betao2;
  elements.Theta2 = s.theta2;
  elements.Sing = std::sin(s.Omega0);
  elements.Cosg = std::cos(s.Omega0);
  elements.Xmdot = s.xmdot;
  elements.Omgdot = s.omgdot;
  elements.Xnodot = s.xnodot;
  DeepSpacePerturbations(1, elements, terms.deep);
}

MeanPlace PlaceSdp4(Sdp4Terms& terms, double tsince, WorkingElementsRecord& w) {
  const SecularTerms& s = terms.secular;
  const double t = tsince;
  const double tsq = Finite(Square(t));
  const double tempa = 1 - s.c1 * t;
  const double tempe = s.Bstar * s.c4 * t;
  const double templ = s.t2cof * tsq;
  w.Xll = s.M0 + s.xmdot * t;
  w.Omgasm = s.Omega0 + s.omgdot * t;
  w.Xnodes = s.Node0 + s.xnodot * t + s.xnodcf * tsq;
  w.Xn = s.xnodp;
  w.T = t;
  DeepSpacePerturbations(2, w, terms.deep);
  const double xmdf = w.Xll;
  MeanPlace place;
  place.a = Pow(Div(xke, w.Xn), tothrd) * Square(tempa);
  w.Em = w.Em - tempe;
  w.Xll = xmdf + s.xnodp * templ;
  DeepSpacePerturbations(3, w, terms.deep);
  place.e = w.Em;
  place.xinc = w.Xinc;
  place.omega = w.Omgasm;
  place.xnode = w.Xnodes;
  place.xl = w.Xll + w.Omgasm + w.Xnodes;
  return place;
}

void PropagateSDP4(double tsince) {
  static Sdp4Terms terms;  // keeps the day of the lunar terms between calls
  OrbitVectors vectors;
  InitSdp4(WorkingElements, terms);
  FinishPlace(terms.secular, PlaceSdp4(terms, tsince, WorkingElements), vectors);
  TakeOver(vectors);
}

}  // namespace halvorine
