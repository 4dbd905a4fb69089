// It's a "remark
/* don't
   open */
/* a /* nested */ one */
struct Walk { @location(0) size: vec2<f32>, } // the 'end
@group(0) @binding(1) var<uniform> walk: Walk;
@fragment fn main() -> @location(0) vec4f {
  return vec4f(0x1Fu, 1.5e3, 2, 1);
}
