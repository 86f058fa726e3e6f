// The motion of scrolled content as pure functions of time. Points, seconds.
#pragma once

namespace toolkit {

/// Velocity kept after each millisecond of free motion.
inline constexpr double scrollDecelerationRate = 0.998;

/// How far content travels until it rests, released at `velocity` points a second.
double scrollTravel(double velocity);
/// How far it has travelled after `t` seconds.
double scrollOffsetAfter(double velocity, double t);
double scrollVelocityAfter(double velocity, double t);
/// Seconds until it moves slower than a point in ten seconds.
double scrollRestTime(double velocity);
/// Seconds until it has travelled `distance`; infinite when it never gets so far.
double scrollTimeToTravel(double velocity, double distance);
/// The shown distance beyond an edge for a finger that is `distance` points beyond, in a view of `extent`
/// points: it grows ever more slowly and stays below `extent`.
double rubberBand(double distance, double extent);
/// The way back: how far beyond the edge the finger is when the content shows `shown`.
double rubberBandFinger(double shown, double extent);
/// A critically damped return to 0 from `distance` beyond the edge at `velocity`, after `t` seconds.
double bounceBack(double distance, double velocity, double t);
/// The velocity of that return.
double bounceVelocity(double distance, double velocity, double t);
/// Seconds until that return passes the edge with velocity left over; infinite when it comes to rest there.
double bounceCrossing(double distance, double velocity);

} // namespace toolkit
