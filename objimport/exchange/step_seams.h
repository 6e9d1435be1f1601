#pragma once

class StepData_StepModel;

/// Takes the 2D curves from the edges of loops that turn back at two poles or more, as that of a
/// sphere does whose seam a hole interrupts: readers that are given them exchange the two sides of
/// the seam. Without them they find the edges on the surface by their 3D curves.
void DropPlaneCurvesAtPoles(const StepData_StepModel& model);
