# SPDX-License-Identifier: LicenseRef-Proprietary
# SPDX-FileCopyrightText: the vms_client_sdk developers

# Installs the build into a fresh prefix, builds the reference viewer from the sources installed
# with the documentation against it like any application, and runs it under a virtual X server
# against the package's simulator with four live H.264 views: it writes a screenshot once every view shows pictures and presses its own
# PTZ and playback controls. The screenshot's views must hold real pictures (not black, not
# flat, not alike) and the simulator's log must show that the controls reached it.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

include(${CMAKE_CURRENT_LIST_DIR}/run.cmake)

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
set(build ${WORK_DIR}/build)
# ccache, when there is one, makes a second run of the test build nothing.
find_program(ccache ccache)
if(ccache)
    set(launcher -DCMAKE_CXX_COMPILER_LAUNCHER=${ccache})
endif()
run(${CMAKE_COMMAND} -S ${prefix}/share/doc/vms-client-sdk/examples/viewer -B ${build} -G Ninja
    ${launcher}
    -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_COMPILE_WARNING_AS_ERROR=ON
    -DVMS_VIEWER_TESTS=ON)
run(${CMAKE_COMMAND} --build ${build})
run(${build}/vms_viewer_test)

# Four cameras at 25 frames per second; the first has presets to go to. The simulator goes
# away by itself should the viewer die without telling it to.
set(config ${WORK_DIR}/four_cameras.json)
file(WRITE ${config} [=[
{
  "idleExitMs": 5000,
  "streams": {"video": "h264", "width": 640, "height": 360, "frameRate": 25,
              "bitRate": 1000000, "keyFrameIntervalMs": 1000},
  "devices": [
    {"id": "cam-1", "name": "Entrance", "ip": "192.168.1.64",
     "channels": [{"index": 1, "osd": "Entrance",
                   "presets": [{"number": 1, "name": "Door"}, {"number": 2, "name": "Desk"}]}]},
    {"id": "cam-2", "name": "Gate", "ip": "192.168.1.65"},
    {"id": "cam-3", "name": "Yard", "ip": "192.168.1.66"},
    {"id": "cam-4", "name": "Hall", "ip": "192.168.1.67"}
  ],
  "pushes": [
    {"type": "alarm", "afterMs": 500, "everyMs": 2000, "alarmId": "motion-1",
     "alarmType": "motion_detection", "alarmName": "motion", "triggerName": "Yard",
     "channelId": {"devId": "cam-3", "channelIndex": 1}}
  ]
}
]=])
set(ENV{VMS_DGW_SIM_CONFIG} ${config})
set(ENV{XDG_DATA_HOME} ${WORK_DIR}/data)
set(shot ${WORK_DIR}/shot.png)
run(xvfb-run -a -s "-screen 0 1600x1000x24" ${build}/vms_viewer --grid 4 --screenshot ${shot}
    --exercise)
set(log "${output}")
message(STATUS "${log}")
expect_in("the viewer's output" "${log}" "screenshot: ${shot}" "exercise: passed"
    # The simulator's own lines: the PTZ pad and the presets, then the playback's controls.
    "<- 56 PTZCtrlReq" "<- 58 GetPresetsReq" "<- 60 PresetOperReq" "<- 52 SearchVideoRecordingsReq"
    "playback from" "paused" "speed \"2\"" "skip to" "resumed")

# Each view's picture: "view <n>: <w>x<h>+<x>+<y> <camera>", cut from the screenshot to the
# same size.
string(REGEX MATCHALL "view [0-9]: [0-9]+x[0-9]+\\+[0-9]+\\+[0-9]+" views "${log}")
list(LENGTH views count)
if(NOT count EQUAL 4)
    message(FATAL_ERROR "expected four views in the output, found: ${views}")
endif()
set(width 100000)
set(height 100000)
foreach(view IN LISTS views)
    string(REGEX MATCH "([0-9]+)x([0-9]+)" size "${view}")
    if(CMAKE_MATCH_1 LESS width)
        set(width ${CMAKE_MATCH_1})
    endif()
    if(CMAKE_MATCH_2 LESS height)
        set(height ${CMAKE_MATCH_2})
    endif()
endforeach()
set(crops)
foreach(view IN LISTS views)
    string(REGEX MATCH "view ([0-9]): [0-9]+x[0-9]+\\+([0-9]+)\\+([0-9]+)" parts "${view}")
    set(crop ${WORK_DIR}/view${CMAKE_MATCH_1}.png)
    # Off the view's frame and its name label: the decoded picture alone.
    math(EXPR x "${CMAKE_MATCH_2} + 4")
    math(EXPR y "${CMAKE_MATCH_3} + 30")
    math(EXPR w "${width} - 8")
    math(EXPR h "${height} - 34")
    run(convert ${shot} -crop ${w}x${h}+${x}+${y} +repage ${crop})
    run(convert ${crop} -format "%[fx:mean] %[fx:standard_deviation]" info:)
    separate_arguments(stats UNIX_COMMAND "${output}")
    list(GET stats 0 mean)
    list(GET stats 1 deviation)
    message(STATUS "${view}: mean ${mean}, standard deviation ${deviation}")
    # An empty view is dark grey (0.09) and flat; a black picture is darker still.
    if(mean LESS 0.15 OR deviation LESS 0.05)
        message(FATAL_ERROR "${view} shows no picture: mean ${mean}, deviation ${deviation}")
    endif()
    list(APPEND crops ${crop})
endforeach()

# Every two views differ: four cameras, not one picture four times.
foreach(i RANGE 0 2)
    math(EXPR first "${i} + 1")
    foreach(j RANGE ${first} 3)
        list(GET crops ${i} a)
        list(GET crops ${j} b)
        execute_process(COMMAND compare -metric RMSE ${a} ${b} null:
            RESULT_VARIABLE result ERROR_VARIABLE distance OUTPUT_QUIET)
        string(REGEX MATCH "\\(([0-9.e-]+)\\)" parts "${distance}")
        if(NOT CMAKE_MATCH_1 OR CMAKE_MATCH_1 LESS 0.02)
            message(FATAL_ERROR "${a} and ${b} are alike: ${distance}")
        endif()
        message(STATUS "${a} vs ${b}: ${distance}")
    endforeach()
endforeach()
