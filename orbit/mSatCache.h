// What depends on an element set, the model and the site alone, kept with the slot and made anew when one of
// them changes; and the elevation without the rest of the state. Nothing here changes a bit of any result.
#pragma once

#include <optional>

#include "orbit/mSatModels.h"
#include "orbit/mSearch.h"

namespace halvorine {

/// Everything about an element set that its state needs at any instant.
struct SlotTerms {
  // the key: raw values of the set, and the model
  std::array<double, 12> raw{};
  std::int16_t propagator = 0;
  bool valid = false;

  WorkingElementsRecord elements;
  bool deep = false;
  bool modelFails = false;  // the model fails for this set at every instant
  double d0 = 0, theta0 = 0;
  double sunAnomaly = 0, sunLongitude = 0;  // their parts that the epoch alone decides, radians
  std::optional<double> motionChange;       // change of the mean motion over the mean motion
  Plan13Terms plan13;
  SgpTerms sgp;
  Sgp4Terms sgp4;
  Sdp4Terms sdp4;

  std::string magnitudeText;
  double magnitude = 0;
};

/// The model that a slot's set is computed with.
enum class SlotModel : std::uint8_t { Plan13, Sgp, Sgp4, Sdp4, None };
SlotModel ModelOf(const SlotTerms& terms);

/// The observer, for the place in Site.
struct ObserverTerms {
  float latitude = 0, longitude = 0, height = 0;  // the key
  bool valid = false;
  double phi = 0, lambda = 0, h = 0;
  std::array<double, 3> position{}, velocity{}, zenith{}, east{}, north{};
};

/// Terms of the slot's set as it is now. Raises ArithmeticFailure where the preparation fails, and
/// SubscriptFailure.
SlotTerms& TermsOf(int slot);
const ObserverTerms& ObserverOf();

/// Runs the model of the terms; raises ArithmeticFailure.
void RunModel(SlotTerms& terms, double minutes, OrbitVectors& out);

/// Elevation in degrees with refraction, exactly as the state holds it. Raises ArithmeticFailure where any
/// statement on the way to it fails: then only the whole state tells what is left standing.
double ElevationAlone(SlotTerms& terms, const ObserverTerms& observer, double julianDay);

/// The objective of the search by the elevation alone, for PassSlot. Raises ArithmeticFailure as above.
class ElevationObjective : public Objective {
 public:
  /// Takes the terms of PassSlot. False where no model runs: the vectors are then those of another
  /// computation, and only whole states know them. Failures of the preparation pass.
  bool Start();
  double At(double julianDay) override;
  void Settle() override;
  /// Remembers a place as asked for, when its value was known.
  void Pretend(double julianDay) {
    last_ = julianDay;
    settled_ = false;
  }
  /// Tells that a whole state was computed since the last place was asked for.
  void TakeAsSettled() { settled_ = true; }
  SlotTerms& Terms() { return *terms_; }
  const ObserverTerms& Observer() const { return *observer_; }
  /// Evaluations since the start of the program, for the benchmarks.
  static inline std::int64_t Count = 0;

 private:
  SlotTerms* terms_ = nullptr;
  const ObserverTerms* observer_ = nullptr;
  double last_ = 0;
  bool settled_ = true;  // the shared records are those of the last place
};

}  // namespace halvorine
