#include "prediction/mRelative.h"

#include <cmath>

#include "astro/mMate.h"
#include "shell/base/mLang.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmDetails";
constexpr std::size_t captionWidth = 11;

constexpr std::array<TableColumn, 7> inertialColumns = {{
    {3, 10, "0.000", CellKind::Number, 'A'},
    {2, 10, "0.000", CellKind::Number, 'A'},
    {2, 10, "0.000", CellKind::Number, 'A'},
    {2, 10, "0.000", CellKind::Number, 'B'},
    {2, 10, "0.000", CellKind::Number, 'B'},
    {2, 10, "0.000", CellKind::Number, 'B'},
    {2, 8, "0.0"},
}};
constexpr std::array<TableColumn, 9> observerColumns = {{
    {3, 6, "0.0"},
    {3, 6, "0.0"},
    {3, 8, "0.0"},
    {4, 6, "0.00", CellKind::Number, 'A'},
    {2, 6, "0.00", CellKind::Number, 'A'},
    {2, 8, "0.0", CellKind::Number, 'A'},
    {4, 6, "0.00", CellKind::Number, 'B'},
    {2, 6, "0.00", CellKind::Number, 'B'},
    {2, 8, "0.0", CellKind::Number, 'B'},
}};
constexpr std::array<TableColumn, 9> subpointColumns = {{
    {3, 6, "0.00"},
    {3, 6, "0.00"},
    {3, 8, "0.0"},
    {4, 7, "0.00", CellKind::Latitude, 'A'},
    {2, 8, "0.00", CellKind::Longitude, 'A'},
    {2, 8, "0.0", CellKind::Number, 'A'},
    {4, 7, "0.00", CellKind::Latitude, 'B'},
    {2, 8, "0.00", CellKind::Longitude, 'B'},
    {2, 8, "0.0", CellKind::Number, 'B'},
}};
constexpr std::array<TableColumn, 7> equatorialColumns = {{
    {5, 9, "", CellKind::RightAscension},
    {2, 6, "", CellKind::Arc},
    {3, 8, "0.0"},
    {4, 9, "", CellKind::RightAscension, 'A'},
    {4, 7, "", CellKind::Declination, 'A'},
    {8, 9, "", CellKind::RightAscension, 'B'},
    {4, 7, "", CellKind::Declination, 'B'},
}};

constexpr const char* inertialBar =
    "                         ------------Satellite A----------    -----------Satellite B-----------";
constexpr const char* placeBar =
    "                                                      -------Satellite A------    -------Satellite "
    "B------";
constexpr const char* subpointBar =
    "                                                      ---------Satellite A-------    ---------Satellite "
    "B-------";

void AddCodeHead(TextTable& table, int code) {
  const auto take = [&table](const char* bar, const char* key, std::span<const TableColumn> columns) {
    table.heading = LookupText(section, key);
    table.head.insert(table.head.end(), {std::string(), bar, table.heading, std::string()});
    table.columns = columns;
  };
  switch (code) {
    case ObserverTable:
      take(placeBar, "intestazionerelativoobs", observerColumns);
      break;
    case InertialTable:
      take(inertialBar, "intestazionerelativoeci", inertialColumns);
      break;
    case SubpointTable:
      take(subpointBar, "intestazionerelativolla", subpointColumns);
      break;
    case EquatorialTable:
      take(placeBar, "intestazionerelativorad", equatorialColumns);
      break;
    default:
      throw SubscriptFailure("coordinate code " + std::to_string(code) + " does not exist");
  }
}

double Dot(const std::array<double, 3>& a, const std::array<double, 3>& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double Distance(const std::array<double, 3>& a, const std::array<double, 3>& b) {
  double sum = 0;
  for (std::size_t i = 0; i < 3; ++i) sum += (a[i] - b[i]) * (a[i] - b[i]);
  return std::sqrt(sum);
}

double CentreAngle(const std::array<double, 3>& a, const std::array<double, 3>& b) {
  double angle = 0;
  Attempt([&] { angle = AngleOf(Div(Dot(a, b), std::sqrt(Dot(a, a)) * std::sqrt(Dot(b, b)))); });
  return angle;
}

double ObserverAngle(const SatelliteState& a, const SatelliteState& b) {
  return AngleOf((a.TopoUp * b.TopoUp + a.TopoEast * b.TopoEast + a.TopoNorth * b.TopoNorth) / 1.0);
}

/// Whole seconds between two right ascensions.
double AscensionApart(double a, double b) {
  double h = 0;
  double m = 0;
  double s = 0;
  const auto decimal = [](double seconds) {
    const double hours = Int(seconds / 3600);
    const double minutes = Int((seconds - hours * 3600) / 60);
    return DmsToDecimal(hours, minutes, seconds - hours * 3600 - minutes * 60);
  };
  DecimalToDms(std::fabs(decimal(a) - decimal(b)), h, m, s);
  return (h * 60 + m) * 60 + s;
}

/// Whole minutes between two declinations.
double DeclinationApart(double a, double b) {
  double d = 0;
  double m = 0;
  const auto decimal = [](double minutes) {
    const double degrees = Int(std::fabs(minutes) / 60);
    const double size = DmsToDecimal(degrees, std::fabs(minutes) - degrees * 60, 0);
    return minutes < 0 ? -size : size;
  };
  DecimalToDm(std::fabs(decimal(a) - decimal(b)), d, m);
  return d * 60 + m;
}

std::array<double, MostColumns> ValuesOf(const TableSatellite& first, const TableSatellite& second,
                                         int code) {
  const SatelliteState& a = first.State();
  const SatelliteState& b = second.State();
  const double distance = Distance(first.position, second.position);
  switch (code) {
    case ObserverTable:
      return {CentreAngle(first.position, second.position),
              ObserverAngle(a, b),
              distance,
              a.Elevation,
              a.Azimuth,
              a.Height,
              b.Elevation,
              b.Azimuth,
              b.Height};
    case InertialTable:
      return {first.position[0],  first.position[1],  first.position[2], second.position[0],
              second.position[1], second.position[2], distance};
    case SubpointTable:
      return {std::fabs(a.LatitudeSigned - b.LatitudeSigned),
              LongitudeApart(a.LongitudeEast, b.LongitudeEast),
              distance,
              a.LatitudeSigned,
              a.LongitudeEast,
              a.Height,
              b.LatitudeSigned,
              b.LongitudeEast,
              b.Height};
    default: {
      const EquatorialCells placeA = EquatorialOf(a);
      const EquatorialCells placeB = EquatorialOf(b);
      return {AscensionApart(placeA.rightAscension, placeB.rightAscension),
              DeclinationApart(placeA.declination, placeB.declination),
              distance,
              placeA.rightAscension,
              placeA.declination,
              placeB.rightAscension,
              placeB.declination};
    }
  }
}

}  // namespace

double AngleOf(double cosine) {
  if (cosine >= 1) return 0;
  return cosine <= -1 ? 180 : ArcCos(cosine) * RadToDeg;
}

double LongitudeApart(double a, double b) {
  const double apart = std::fabs(a - b);
  return apart > 180 ? 360 - apart : apart;
}

TableOutcome MakeRelativeTable(const TableRequest& request, TextTable& table, const TableGrowth& grown) {
  AddSatelliteHead(table, "satellitea", ScratchSlot, captionWidth);
  AddSatelliteHead(table, "satelliteb", RelativeSlot, captionWidth);
  AddCodeHead(table, request.code);
  grown();
  TableSatellite a(ScratchSlot);
  TableSatellite b(RelativeSlot);
  return FillTable(
      table, SpanOf(request), request.end,
      [&](TableRow& row) {
        RowOutcome outcome;
        outcome.computed = a.Compute() && b.Compute();
        row.values = ValuesOf(a, b, request.code);
        outcome.last = a.HasFallen() || b.HasFallen();
        return outcome;
      },
      grown);
}

}  // namespace halvorine
