// The water surface at any time, from the frames of the field.
import type { Axis, Field, Still } from '../data/data';
import { unpack, type Counts } from '../data/packed';
import { scale, type ScaleKind } from '../drawing/colours';
import { blend } from '../drawing/cubic';
import { mix, paintGrid, type Rect } from '../drawing/surface';
import type { View } from '../page/view';

// How a picture is coloured; what is left out is as if the page just opened.
export interface Look {
  kind?: ScaleKind;
  range?: number; // m: colours go from -range to range
}

export class FieldPicture {
  private readonly frame: Float32Array;
  private shown = NaN; // position among the frames that `frame` holds

  private constructor(
    private readonly counts: Counts,
    readonly x: Axis,
    readonly y: Axis,
    readonly start: number, // s, of the first frame
    readonly rate: number, // Hz
    readonly frames: number,
    readonly largest: number, // m, the greatest height or depth of all frames of the run
  ) {
    this.frame = new Float32Array(x.count * y.count);
  }

  // A field is decoded once, however many parts of the page show it.
  static load(field: Field): Promise<FieldPicture> {
    let loaded = decoded.get(field);
    if (!loaded) {
      loaded = unpack(field.eta).then(
        (counts) => new FieldPicture(counts, field.x, field.y, field.start, field.rate, field.eta.shape[0], largestOf(field)),
      );
      decoded.set(field, loaded);
    }
    return loaded;
  }

  // A still has one frame. It keeps the colours of the field that it is from.
  static async ofStill(still: Still, field: Field): Promise<FieldPicture> {
    return new FieldPicture(await unpack(still.eta), still.x, still.y, still.t, field.of.rate, 1, largestOf(field));
  }

  // s, of the last frame.
  get end(): number {
    return this.start + (this.frames - 1) / this.rate;
  }

  // The nearest time of which there is a picture.
  nearest(time: number): number {
    return Math.min(Math.max(time, this.start), this.end);
  }

  // The number of the frame nearest to a time.
  frameAt(time: number): number {
    return Math.round((this.nearest(time) - this.start) * this.rate);
  }

  timeOf(frame: number): number {
    return this.start + Math.min(Math.max(frame, 0), this.frames - 1) / this.rate;
  }

  // Paints the surface at the time of the view. y grows upwards; `rect` goes from the first point
  // of the grid to the last.
  paint(ctx: CanvasRenderingContext2D, view: Pick<View, 'time' | 'grey'>, rect: Rect, look: Look = {}): void {
    this.compose(view.time);
    const kind = view.grey ? 'grey' : (look.kind ?? 'diverging');
    const grid = { heights: this.frame, columns: this.x.count, rows: this.y.count };
    paintGrid(ctx, grid, rect, scale(kind), look.range ?? this.largest);
  }

  // m; NaN outside of the grid.
  heightAt(x: number, y: number, time: number): number {
    const column = position(x, this.x);
    const row = position(y, this.y);
    if (Number.isNaN(column) || Number.isNaN(row)) return NaN;
    this.compose(time);
    const across = blend(column, this.x.count);
    const rows = Array.from({ length: this.y.count }, () => NaN);
    const up = blend(row, this.y.count);
    for (const at of up.at) rows[at] = mix(this.frame, at * this.x.count, 1, across);
    return mix(rows, 0, 1, up);
  }

  // The frame at a time, of all points of the grid in rows of x.
  heights(time: number): Float32Array {
    this.compose(time);
    return this.frame;
  }

  private compose(time: number): void {
    const at = (this.nearest(time) - this.start) * this.rate;
    if (at === this.shown) return;
    this.shown = at;
    const size = this.frame.length;
    const { counts, step } = this.counts;
    const between = blend(at, this.frames);
    this.frame.fill(0);
    for (let i = 0; i < 4; ++i) {
      const weight = between.weight[i] * step;
      if (weight === 0) continue;
      const from = between.at[i] * size;
      for (let k = 0; k < size; ++k) {
        const count = counts[from + k];
        this.frame[k] += count === -32768 ? NaN : weight * count;
      }
    }
  }
}

function largestOf({ lowest, highest }: Field): number {
  return Math.max(Math.abs(lowest ?? 0), Math.abs(highest ?? 0));
}

const decoded = new WeakMap<Field, Promise<FieldPicture>>();

// Of a place among the points of an axis; NaN outside. A single point stands for its surroundings.
function position(at: number, axis: Axis): number {
  if (axis.count === 1) return Math.abs(at - axis.from) <= Math.max(axis.step, 0.1) ? 0 : NaN;
  const found = (at - axis.from) / axis.step;
  return found >= -1e-9 && found <= axis.count - 1 + 1e-9 ? found : NaN;
}
