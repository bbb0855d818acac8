// The tank from above: walls, depth contours, paddles and points.
import type { Plan } from '../data/data';
import { colour } from '../drawing/colours';
import { depthContours } from './depth_contours';
import { tankExtent, type Extent } from './tank_extent';
import { drawPaddles } from './tank_paddles';
import { Pen, shortened } from './tank_pen';

export interface TankOptions {
  points?: { name: string; x: number; y: number }[];
  contours?: boolean; // unless false
  names?: boolean; // of points and banks, unless false
  chosen?: { bank: number; paddle: number }; // drawn thick
  extent?: Extent; // how far the drawing reaches, if not as far as tankExtent says
  onPicture?: boolean; // the water is painted below: dark lines with a light edge
}

// `place` turns metres into places on the canvas. Draw the water first.
export function drawTank(
  ctx: CanvasRenderingContext2D,
  plan: Plan,
  place: (x: number, y: number) => [number, number],
  options: TankOptions = {},
): void {
  const extent = options.extent ?? tankExtent(plan, options.points ?? []);
  const pen = new Pen(ctx, options.onPicture ?? false);
  ctx.save();
  ctx.lineCap = 'butt';
  ctx.lineJoin = 'miter';
  if (options.contours !== false) drawContours(pen, plan, extent, place);
  drawWalls(pen, plan, extent, place);
  drawPaddles(pen, plan, place, options);
  for (const point of options.points ?? []) drawPoint(pen, point, place, options.names !== false);
  ctx.restore();
}

type Placed = (x: number, y: number) => [number, number];

// Reflecting side walls are thick, the other limits of the tank thin; where the site gives no
// wall, the line is dashed.
function drawWalls(pen: Pen, plan: Plan, extent: Extent, place: Placed): void {
  const [left, right] = extent.x;
  const corner = { plus: extent.y[1], minus: extent.y[0] };
  for (const x of extent.x) pen.line([place(x, corner.minus), place(x, corner.plus)], 1);
  for (const side of ['minus', 'plus'] as const) {
    const open = plan.y[side === 'minus' ? 0 : 1] === null;
    const reflects = plan.walls === side || plan.walls === 'both' || plan.walls === 'flume';
    const y = corner[side];
    pen.line([place(left, y), place(right, y)], reflects && !open ? 3 : 1, open ? [2, 4] : []);
  }
}

function drawContours(pen: Pen, plan: Plan, extent: Extent, place: Placed): void {
  let free = -1e9; // where the last label ends
  for (const contour of depthContours(plan)) {
    const top = place(contour.x, extent.y[1]);
    const bottom = place(contour.x, extent.y[0]);
    pen.line([bottom, top], 1, [5, 4], 0.6);
    const text = free < 0 ? `depth ${contour.text}` : contour.text;
    const width = pen.width(text);
    if (Math.abs(top[1] - bottom[1]) < 40 || top[0] - width / 2 < free) continue;
    pen.text(text, top[0], top[1] + 5, 'center', 'top');
    free = top[0] + width / 2 + 6;
  }
}

function drawPoint(pen: Pen, point: { name: string; x: number; y: number }, place: Placed, named: boolean): void {
  const [x, y] = place(point.x, point.y);
  pen.cross(x, y, 5, pen.onPicture ? '#1b1f24' : colour('accent'));
  if (named) pen.text(shortened(point.name, 24), x + 7, y - 4, 'left', 'bottom');
}
