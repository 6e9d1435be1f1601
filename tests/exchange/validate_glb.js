// Has the Khronos validator (npm package gltf-validator) check GLB files:
//   node validate_glb.js FILE...
// Prints errors and warnings; exit status 1 when there are any, 77 when the package is not there.
'use strict';
const fs = require('fs');

let validator;
try {
  validator = require('gltf-validator');
} catch {
  console.log('gltf-validator is not installed; NODE_PATH names the folder of its package');
  process.exit(77);
}

async function check(name) {
  const report = await validator.validateBytes(new Uint8Array(fs.readFileSync(name)), {
    uri: name, maxIssues: 100});
  const bad = report.issues.messages.filter((issue) => issue.severity < 2);
  for (const issue of bad)
    console.log(`${name}: ${issue.code} at ${issue.pointer}: ${issue.message}`);
  return bad.length;
}

async function main(names) {
  let bad = 0;
  for (const name of names)
    bad += await check(name);
  console.log(`${names.length} files checked, ${bad} errors and warnings`);
  process.exit(bad > 0 || names.length === 0 ? 1 : 0);
}

main(process.argv.slice(2));
